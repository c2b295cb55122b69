// A save of the settings, against writing and flushing the same bytes.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <fstream>

#include "benchmarks/home.h"
#include "core/settings_file.h"
#include "platform/linux/linux_runtime.h"
#include "practice/no_platform.h"

namespace {

using namespace bench;

void save(benchmark::State& state) {
    const Home home;
    std::string told;
    platform::LinuxRuntime runtime([&](const std::string& text, int, const std::string&) {
        told = text;
        return core::Runtime::Answer::Ok;
    });
    practice::NoToolkit windows;
    forms::Application application(windows, nullptr);
    core::Program program{runtime, application, {}};
    for (auto& folder : program.state.IncludeFolders)
        folder = "c:\\kelm\\standard library";
    for (auto _ : state)
        core::SaveSettings(program);
    if (!told.empty()) state.SkipWithError(told.c_str());
}
BENCHMARK(save)->Unit(benchmark::kMicrosecond)->UseRealTime();

void writeAndFlush(benchmark::State& state) {
    const fs::path programs = fs::read_symlink("/proc/self/exe").parent_path();
    std::ifstream saved(programs / "nwbw.ini", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(saved), {}};
    const fs::path file = programs / "nwbw.ref";
    for (auto _ : state) {
        const int handle = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (bytes.empty() || write(handle, bytes.data(), bytes.size()) < 0 || fsync(handle) != 0)
            state.SkipWithError("cannot write");
        close(handle);
    }
    fs::remove(file);
}
BENCHMARK(writeAndFlush)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
