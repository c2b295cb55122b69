// One keystroke in the source's name: rebuilds the compile commands with the short paths of the
// source, in a folder of many files, and of 20 include folders.

#include <benchmark/benchmark.h>

#include <fstream>
#include <vector>

#include "benchmarks/home.h"
#include "console/frm_console.h"
#include "platform/linux/linux_runtime.h"
#include "platform/stubs/stubs.h"

namespace {

using namespace bench;

/// Creates a folder with this many sources with long names, unless it exists, and the include
/// folders. Returns the name of a source, then those of the include folders.
std::vector<std::string> fill(const Home& home, std::int64_t files, std::int64_t includes) {
    const std::string games = "games " + std::to_string(files);
    if (fs::create_directories(home.driveC() / games)) {
        for (std::int64_t i = 0; i < files; ++i)
            std::ofstream(home.driveC() / games / ("wizardquest " + std::to_string(i) + ".kel"));
    }
    std::vector<std::string> paths = {"c:\\" + games + "\\wizardquest " +
                                      std::to_string(files - 1) + ".kel"};
    for (int i = 1; i <= includes; ++i) {
        const std::string library = "standard library " + std::to_string(i);
        fs::create_directories(home.driveC() / "kelm" / library);
        paths.push_back("c:\\kelm\\" + library);
    }
    // A folder that has just changed is not cached, since it could change again with the same time
    // stamp.
    for (const std::string& changed : {games, std::string("kelm"), std::string()}) {
        if (fs::exists(home.driveC() / changed))
            fs::last_write_time(home.driveC() / changed,
                                fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    return paths;
}

void keystroke(benchmark::State& state) {
    static const Home home;  // shared by all runs, since creating the files is slow
    home.enter();
    const auto paths = fill(home, state.range(0), state.range(1));
    platform::LinuxRuntime runtime(nullptr);
    stubs::StubToolkit windows;
    forms::Application application(windows, nullptr);
    core::Program program{runtime};
    program.state.CompilerPath = "c:\\kelm\\programs\\kelm.exe";
    program.state.StartTab = 2;
    std::copy(paths.begin() + 1, paths.end(), program.state.IncludeFolders.begin());
    auto& panel = application.load<console::frmConsole>(program).compile;
    // Typed and deleted again, as at the end of a name.
    const std::string& name = paths.front();
    panel.txtFname.type(name);  // the first time reads the folders
    bool whole = true;
    for (auto _ : state)
        panel.txtFname.type((whole = !whole) ? name : name.substr(0, name.size() - 1));
    panel.txtFname.type(name);
    if (panel.txtCmdline.Text().find(" WI") == std::string::npos)
        state.SkipWithError("the command lacks the short name");
}
BENCHMARK(keystroke)->ArgsProduct({{10, 1'000, 10'000}, {0, 20}})->Unit(benchmark::kMicrosecond);

}  // namespace
