#pragma once

#include <future>
#include <string>
#include <vector>

namespace platform {

/// A program ready to be started: never a text for a shell, always a list of words.
struct Invocation {
    std::vector<std::string> words;  ///< the host's path of the program, then its arguments
    std::string winePrefix;          ///< set for a Windows program that Wine runs
    bool inTerminal = false;         ///< talks to its user through a terminal
};

/// How a program ended.
struct Ending {
    int code = 0;
    int signal = 0;  ///< the one that ended it, or 0

    [[nodiscard]] bool isGood() const { return code == 0 && signal == 0; }
    /// "ended with exit code 1", "was ended by signal 11 (Segmentation fault)"
    [[nodiscard]] std::string text() const;
};

/// Starts the program so that it lives on when this process has ended. Gives how it ends, for those
/// that care to look. Throws RuntimeError with the system's text if it cannot be started.
std::future<Ending> startDetached(const Invocation& invocation);

/// Runs the program to its end. inputFile is the host's path of what it reads from; if empty, it
/// reads what this process would. Throws RuntimeError if it cannot be started.
Ending runToEnd(const Invocation& invocation, const std::string& inputFile);

}  // namespace platform
