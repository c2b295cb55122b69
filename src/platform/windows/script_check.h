#pragma once

#include <string>
#include <string_view>

#include "core/runtime.h"

/// Checks commands before the system's command interpreter gets them. Each function throws Refusal
/// if the interpreter would do something else than intended.
namespace platform {

/// Checks that no name in a line contains a character with a meaning for the interpreter: "&", "|",
/// "^", ">" and a second "<" outside double quotes, and "%" and control characters anywhere. The
/// error shows the name and the character.
void checkLine(std::string_view line);

/// Checks all lines of a script. Returns the folder that its drive line and "cd" line lead to, as a
/// path that lacks the drive or the folder if the line is missing; empty if both are.
std::string folderOfScript(std::string_view script);

}  // namespace platform
