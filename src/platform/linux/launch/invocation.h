#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// A program to start, always as a list of words and never as a text for a shell.
struct Invocation {
    std::vector<std::string> words;  ///< the program's host path, then its arguments
    std::string winePrefix;          ///< set if Wine runs the program
    bool inTerminal = false;         ///< needs a terminal
};

/// How a program ended.
struct Ending {
    int code = 0;
    int signal = 0;  ///< the signal that ended it, or 0

    [[nodiscard]] bool isGood() const { return code == 0 && signal == 0; }
    /// Returns "ended with exit code 1" or "was ended by signal 11 (Segmentation fault)".
    [[nodiscard]] std::string text() const;
};

/// Throws core::Refusal "Cannot start NAME: REASON".
[[noreturn]] void refuseToStart(const std::string& name, const std::string& reason);

/// Starts the program so that it outlives this process. When it ends, calls `ended` from the event
/// loop, unless `owner` is gone by then. Throws RuntimeError with the system's text if it cannot be
/// started.
void startDetached(const Invocation& invocation, QObject& owner,
                   const std::function<void(const Ending&)>& ended);

/// Runs the program and waits for it to end. Its standard input is `inputFile`, a host path, or
/// this process's own if that is empty. Throws RuntimeError if it cannot be started.
Ending runToEnd(const Invocation& invocation, const std::string& inputFile);

}  // namespace platform
