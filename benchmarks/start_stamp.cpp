// A tool that writes its start time, in nanoseconds of the monotonic clock, to the file that
// NWBW_STAMP names, and then ends whatever waits for it.

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

int main() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const std::string stamp = std::getenv("NWBW_STAMP");
    const std::string writing = stamp + "~";
    if (std::FILE* file = std::fopen(writing.c_str(), "w")) {
        std::fprintf(file, "%lld", static_cast<long long>(std::chrono::nanoseconds(now).count()));
        std::fclose(file);
    }
    std::rename(writing.c_str(), stamp.c_str());
    kill(getppid(), SIGKILL);
}
