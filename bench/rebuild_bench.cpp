// What one keystroke in the name of the source costs: the rebuild of the compile commands, with the
// short paths of the source, in a folder of many files, and of 20 include folders.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "console/frm_console.h"
#include "platform/linux/linux_runtime.h"

namespace {

namespace fs = std::filesystem;

/// A home with a drive c: that holds a folder of many long named sources and 20 include folders.
class Home {
  public:
    explicit Home(std::int64_t files) : folder_(fs::temp_directory_path() / "nwbw-bench-XXXXXX") {
        std::string name = folder_.string();
        folder_ = mkdtemp(name.data());
        const fs::path games = folder_ / "nwbw/drive_c/my games";
        fs::create_directories(games);
        for (std::int64_t i = 0; i < files; ++i)
            std::ofstream(games / ("wizardquest " + std::to_string(i) + ".kel"));
        paths.push_back("c:\\my games\\wizardquest " + std::to_string(files - 1) + ".kel");
        for (int i = 1; i <= 20; ++i) {
            const std::string library = "standard library " + std::to_string(i);
            fs::create_directories(folder_ / "nwbw/drive_c/kelm" / library);
            paths.push_back("c:\\kelm\\" + library);
        }
        setenv("HOME", folder_.c_str(), 1);
        setenv("XDG_DATA_HOME", folder_.c_str(), 1);
        fs::create_directories(folder_ / "nwbw/dosdevices");
        fs::create_directory_symlink("../drive_c", folder_ / "nwbw/dosdevices/c:");
        for (const char* changed : {"my games", "kelm", ""}) {
            fs::last_write_time(folder_ / "nwbw/drive_c" / changed,
                                fs::file_time_type::clock::now() - std::chrono::hours(1));
        }
    }
    ~Home() { fs::remove_all(folder_); }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    std::vector<std::string> paths;

  private:
    fs::path folder_;
};

void shortPathsOfOneKeystroke(benchmark::State& state) {
    const Home home(state.range(0));
    platform::LinuxRuntime runtime(nullptr);
    for (auto _ : state)
        for (const std::string& path : home.paths)
            benchmark::DoNotOptimize(runtime.GetShortPathName(path));
    if (runtime.GetShortPathName(home.paths.back()) != "c:\\kelm\\STAND~20") {
        state.SkipWithError("a short path is wrong");
    }
}
BENCHMARK(shortPathsOfOneKeystroke)
    ->Arg(10)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMicrosecond);

/// Windows that show nothing.
class NoWindows : public forms::Toolkit {
  public:
    void build(forms::Form& /*form*/) override {}
    std::string chooseFile(forms::Form& /*owner*/, const forms::FileQuestion&) override {
        return {};
    }
    void quit() override {}
};

void keystroke(benchmark::State& state, std::size_t includes) {
    const Home home(state.range(0));
    platform::LinuxRuntime runtime(nullptr);
    NoWindows windows;
    forms::Application application(windows, nullptr);
    core::Program program{runtime, application, {}};
    program.state.CompilerPath = "c:\\kelm\\programs\\kelm.exe";
    program.state.StartTab = 2;
    std::copy_n(home.paths.begin() + 1, includes, program.state.IncludeFolders.begin());
    auto& panel = application.load<console::frmConsole>(program).compile;
    // Typed and deleted again, as a user does at the end of a name.
    const std::string& name = home.paths.front();
    bool whole = false;
    for (auto _ : state)
        panel.txtFname.type((whole = !whole) ? name : name.substr(0, name.size() - 1));
    panel.txtFname.type(name);
    if (panel.txtCmdline.Text().find(" WI") == std::string::npos) {
        state.SkipWithError("the command lacks the short name");
    }
}
void keystrokeWithoutIncludes(benchmark::State& state) {
    keystroke(state, 0);
}
void keystrokeWith20Includes(benchmark::State& state) {
    keystroke(state, 20);
}
BENCHMARK(keystrokeWithoutIncludes)
    ->Arg(10)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(keystrokeWith20Includes)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

/// The same right after a folder has changed, when nothing that is kept can be trusted.
void shortPathsAfterAChange(benchmark::State& state) {
    const Home home(state.range(0));
    for (auto _ : state) {
        platform::LinuxRuntime runtime(nullptr);
        for (const std::string& path : home.paths)
            benchmark::DoNotOptimize(runtime.GetShortPathName(path));
    }
}
BENCHMARK(shortPathsAfterAChange)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
