#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Splits a command into words as a shell does: at blanks, with single quotes, double quotes and
/// backslashes. Expands nothing.
std::vector<std::string> shellWords(std::string_view text);

/// Joins words into a text that a shell splits into the same words.
std::string shellText(const std::vector<std::string>& words);

/// Joins words into one argument of "env" that starts them as a command.
std::string envArgument(const std::vector<std::string>& words);

}  // namespace platform
