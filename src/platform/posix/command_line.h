#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A line that starts a program. Blanks part its words, double quotes hold blanks together and
/// fall away, "<" outside of quotes names the file to read from, and every other character is an
/// ordinary one.
struct CommandLine {
    explicit CommandLine(std::string_view text);

    std::vector<std::string> words;    ///< the program and its arguments
    std::optional<std::string> input;  ///< the word behind "<"; empty if there is none
    std::string rest;                  ///< all that stands behind the program, as one name
};

/// Without blanks at both ends.
std::string_view trimmed(std::string_view text);
/// Without its double quotes.
std::string unquoted(std::string_view text);

}  // namespace platform
