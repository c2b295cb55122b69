#pragma once

#include <string>
#include <string_view>

/// Reads commands as the system's command interpreter would, before it is given them. Each throws
/// RuntimeError if the interpreter would do anything else than what is meant.
namespace platform {

/// Checks one line: no character of a name in it may be a command to the interpreter. Such are "&",
/// "|", "^", ">" and a second "<" outside of double quotes, and "%" and control characters
/// anywhere. The error tells the name and the character.
void checkLine(std::string_view line);

/// Checks all lines of a script. Gives the folder that the drive line and the "cd" line at its
/// start lead to, as a path that may lack either of the two; empty if it has neither.
std::string folderOfScript(std::string_view script);

}  // namespace platform
