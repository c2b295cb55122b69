#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A line that starts a program. Blanks separate its words, double quotes protect blanks and are
/// removed, and "<" outside quotes is followed by the file for standard input. No other character
/// is special.
struct CommandLine {
    explicit CommandLine(std::string_view text);

    std::vector<std::string> words;    ///< the program and its arguments
    std::optional<std::string> input;  ///< the word after "<", which may be missing
    std::string rest;                  ///< everything after the program, as one name
};

/// What separates words.
constexpr std::string_view blanks = " \t";

/// Returns the text without leading and trailing blanks.
std::string_view trimmed(std::string_view text);
/// Returns the text without its double quotes.
std::string unquoted(std::string_view text);

}  // namespace platform
