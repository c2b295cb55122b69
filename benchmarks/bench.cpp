// Measures what a user waits for and prints a table. Each figure has a reference that was measured
// in the same run. Figures are medians of many repetitions in random order, so that other load on
// the machine affects all of them alike.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

struct Figure {
    const char* what;
    const char* unit;
    const char* measured;   ///< name of the benchmark
    const char* reference;  ///< name of the benchmark to compare with, or null
    double limit;           ///< a multiple of the reference, or a time in the unit
    bool memory = false;
};

constexpr Figure figures[] = {
    {"Start to console, against a window of one word", "ms", "startToConsole", "startToOneWord",
     1.15},
    {"Peak of memory, against the same", "MiB", "startToConsole", "startToOneWord", 1.15, true},
    {"Keystroke, 10 files", "us", "keystroke/10/0", nullptr, 20},
    {"Keystroke, 1,000 files", "us", "keystroke/1000/0", nullptr, 20},
    {"Keystroke, 10,000 files", "us", "keystroke/10000/0", nullptr, 20},
    {"Keystroke, 10 files, 20 includes", "us", "keystroke/10/20", nullptr, 200},
    {"Keystroke, 1,000 files, 20 includes", "us", "keystroke/1000/20", nullptr, 200},
    {"Keystroke, 10,000 files, 20 includes", "us", "keystroke/10000/20", nullptr, 200},
    {"Button to tool, against a shell script", "ms", "action", "actionByShell", 1.5},
    {"Save, against the bare system calls", "us", "save", "saveByCalls", 1.25},
};

/// Returns why a run failed, or an empty string. Newer versions of the library name it differently.
template <typename AnyRun>
const std::string& failure(const AnyRun& run) {
    if constexpr (requires { run.error_message; }) {
        return run.error_message;
    } else {
        return run.skip_message;
    }
}

/// Collects the runs and prints the table at the end.
class Table : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            if (!failure(run).empty())
                std::printf("%s: %s\n", run.run_name.function_name.c_str(), failure(run).c_str());
            std::string name = run.run_name.function_name;
            if (!run.run_name.args.empty()) name += '/' + run.run_name.args;
            times_[name].push_back(run.GetAdjustedRealTime());
            const auto memory = run.counters.find("MiB");
            if (memory != run.counters.end()) memory_[name].push_back(memory->second);
        }
    }

    void Finalize() override {
        std::printf("%-46s %12s %12s %8s %8s\n", "", "measured", "reference", "ratio", "at most");
        for (const Figure& figure : figures)
            print(figure);
    }

  private:
    using Runs = std::map<std::string, std::vector<double>>;

    static double median(std::vector<double> values) {
        if (values.empty()) return 0;
        std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
        return values[values.size() / 2];
    }

    void print(const Figure& figure) {
        Runs& runs = figure.memory ? memory_ : times_;
        const double measured = median(runs[figure.measured]);
        std::printf("%-46s %8.1f %-3s", figure.what, measured, figure.unit);
        if (!figure.reference) {
            std::printf(" %12s %8s %5.0f %-2s  %s\n", "", "", figure.limit, figure.unit,
                        verdict(measured, figure));
            return;
        }
        const double reference = median(runs[figure.reference]);
        const double ratio = measured / reference;
        std::printf(" %8.1f %-3s %8.2f %8.2f  %s\n", reference, figure.unit, ratio, figure.limit,
                    verdict(ratio, figure));
    }

    static const char* verdict(double value, const Figure& figure) {
        return value <= figure.limit ? "met" : "not met";
    }

    Runs times_;
    Runs memory_;
};

}  // namespace

int main(int count, char** arguments) {
    std::vector<char*> words(arguments, arguments + count);
    std::string repetitions = "--benchmark_repetitions=15";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string shortest = "--benchmark_min_time=0.02";
    words.insert(words.begin() + 1, {repetitions.data(), interleaving.data(), shortest.data()});
    int number = static_cast<int>(words.size());
    benchmark::Initialize(&number, words.data());
    if (benchmark::ReportUnrecognizedArguments(number, words.data())) return 1;
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
}
