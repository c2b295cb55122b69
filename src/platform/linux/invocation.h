#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace platform {

/// A program ready to be started: never a text for a shell, always a list of words.
struct Invocation {
    std::vector<std::string> words;  ///< the host's path of the program, then its arguments
    std::string winePrefix;          ///< set for a Windows program that Wine runs
    bool inTerminal = false;         ///< talks to its user through a terminal
};

/// Starts the program so that it lives on when this process has ended. Throws RuntimeError with
/// the system's text if it cannot be started.
void startDetached(const Invocation& invocation);

/// How a program ended.
enum class Ending { ByItself, Interrupted };

/// Runs the program to its end. inputFile is the host's path of what it reads from; if empty, it
/// reads what this process would. Throws RuntimeError if it cannot be started.
Ending runToEnd(const Invocation& invocation, const std::string& inputFile);

}  // namespace platform
