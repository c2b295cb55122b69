#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of a batch script.
struct BatchLine {
    enum class Kind { Drive, ChangeFolder, Pause, Exit, Command };

    Kind kind = Kind::Command;
    std::string text;    ///< the line, trimmed
    std::string folder;  ///< the argument of ChangeFolder, without quotes
};

/// Returns the non-blank lines of a script. Lines end in CRLF or LF.
std::vector<BatchLine> parseBatch(std::string_view script);

}  // namespace platform
