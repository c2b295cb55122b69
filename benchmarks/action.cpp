// From pressing an action button to the first instruction of the tool, compared with a shell script
// of the same lines, spawned in the same way.

#include <benchmark/benchmark.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "benchmarks/home.h"
#include "console/frm_console.h"
#include "platform/linux/launch/terminal.h"
#include "platform/linux/linux_runtime.h"
#include "platform/stubs/stubs.h"

namespace {

using namespace bench;
using Clock = std::chrono::steady_clock;

/// A compiler that records when it starts, and a source file for it.
class TimedCompiler {
  public:
    TimedCompiler() {
        const fs::path programs = home_.driveC() / "kelm";
        fs::create_directories(programs);
        fs::create_directories(games());
        fs::copy_file(fs::read_symlink("/proc/self/exe").parent_path() / "start_stamp", compiler());
        std::ofstream(games() / "cave.kel") << "\"A cave.\"\n";
        setenv("NWBW_STAMP", stamp().c_str(), 1);
    }

    [[nodiscard]] fs::path games() const { return home_.driveC() / "my games"; }
    [[nodiscard]] fs::path compiler() const { return home_.driveC() / "kelm/kelm.exe"; }

    /// Returns the seconds from the start of the action to the start of the compiler.
    double secondsOf(const std::function<void()>& action) {
        fs::remove(stamp());
        const auto before = Clock::now();
        action();
        while (!fs::exists(stamp()))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        long long started = 0;
        std::ifstream(stamp()) >> started;
        const auto last = Clock::time_point(Clock::duration(started));
        return std::chrono::duration<double>(last - before).count();
    }

  private:
    [[nodiscard]] fs::path stamp() const { return home_.folder() / "stamp"; }

    Home home_;
};

void action(benchmark::State& state) {
    TimedCompiler timed;
    std::string error;
    platform::LinuxRuntime runtime([&](const std::string& text, int, const std::string&) {
        error = text;
        return core::Runtime::Answer::Ok;
    });
    stubs::StubToolkit windows;
    forms::Application application(windows, [&](const std::string& text, bool) { error = text; });
    core::Program program{runtime};
    program.state.CompilerPath = "c:\\kelm\\kelm.exe";
    program.state.StartTab = 2;
    auto& panel = application.load<console::frmConsole>(program).compile;
    panel.txtFname.type("c:\\my games\\cave.kel");
    for (auto _ : state) {
        state.SetIterationTime(timed.secondsOf([&] {
            panel.btnCompile.click();
            if (!error.empty()) throw std::runtime_error(error);
        }));
    }
}
BENCHMARK(action)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void actionByShell(benchmark::State& state) {
    TimedCompiler timed;
    const fs::path script = timed.games() / "script.sh";
    std::ofstream(script) << "cd '" << timed.games().string() << "'\n'" << timed.compiler().string()
                          << "' cave -List -Height 0\n";
    QObject owner;
    for (auto _ : state) {
        state.SetIterationTime(timed.secondsOf([&] {
            platform::startDetached(platform::inTerminal({"/bin/sh", script.string()}, false),
                                    owner, [](const platform::Ending&) {});
        }));
    }
}
BENCHMARK(actionByShell)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
