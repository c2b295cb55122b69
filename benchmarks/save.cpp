// Saving the settings, compared with the same system calls on the same bytes.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "benchmarks/home.h"
#include "core/settings_file.h"
#include "platform/linux/linux_runtime.h"
#include "platform/stubs/stubs.h"

namespace {

using namespace bench;

/// The workbench's own save.
class Saver {
  public:
    Saver() {
        core::LoadSettings(program_);
        error_.clear();  // it tells that there is no file yet
        for (auto& folder : program_.state.IncludeFolders)
            folder = "c:\\kelm\\standard library";
    }
    /// Returns the message of a failure, or an empty string.
    std::string save() {
        core::SaveSettings(program_);
        return error_;
    }

  private:
    Home home_;
    std::string error_;
    platform::LinuxRuntime runtime_{[this](const std::string& text, int, const std::string&) {
        error_ = text;
        return core::Runtime::Answer::Ok;
    }};
    stubs::StubToolkit windows_;
    forms::Application application_{windows_, nullptr};
    core::Program program_{runtime_};
};

void save(benchmark::State& state) {
    Saver saver;
    std::string error;
    for (auto _ : state)
        error = saver.save();
    if (!error.empty()) state.SkipWithError(error.c_str());
}
BENCHMARK(save)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The steps of a save: write and flush the new file, remove the backup, rename twice.
void saveByCalls(benchmark::State& state) {
    Saver().save();
    const fs::path programs = fs::read_symlink("/proc/self/exe").parent_path();
    std::ifstream saved(programs / "nwbw.ini", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(saved), {}};
    const std::string current = programs / "reference.ini";
    const std::string backup = programs / "reference.bkp";
    const std::string writing = programs / "reference.tmp";
    std::ofstream(current) << bytes;
    std::ofstream(backup) << bytes;
    for (auto _ : state) {
        const int handle = open(writing.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        const bool written = !bytes.empty() && write(handle, bytes.data(), bytes.size()) > 0 &&
                             fsync(handle) == 0 && close(handle) == 0;
        if (!written || unlink(backup.c_str()) != 0 ||
            std::rename(current.c_str(), backup.c_str()) != 0 ||
            std::rename(writing.c_str(), current.c_str()) != 0)
            state.SkipWithError("cannot save");
    }
    for (const std::string& file : {current, backup})
        fs::remove(file);
}
BENCHMARK(saveByCalls)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
