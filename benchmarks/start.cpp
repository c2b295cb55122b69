// From the program's start until its console is painted, compared with a window that shows a word:
// reading the fonts alone takes a good part of the time.

#include <benchmark/benchmark.h>

#include <QProcess>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>

namespace {

void start(benchmark::State& state, const char* window) {
    const auto programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    for (auto _ : state) {
        const auto before = std::chrono::steady_clock::now().time_since_epoch();
        child.start(QString::fromStdString(programs / "start_window"), {window});
        child.waitForFinished();
        std::istringstream report(child.readAllStandardOutput().toStdString());
        long long painted = 0;
        double kibibytes = 0;
        if (!(report >> painted >> kibibytes)) state.SkipWithError("no window came up");
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::nanoseconds(painted) - before).count());
        state.counters["MiB"] = kibibytes / 1024;
    }
}
void startToConsole(benchmark::State& state) {
    start(state, "console");
}
void startToOneWord(benchmark::State& state) {
    start(state, "word");
}
// Often, since the time that a start takes varies by a third.
BENCHMARK(startToConsole)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(45)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(startToOneWord)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(45)
    ->Unit(benchmark::kMillisecond);

}  // namespace
