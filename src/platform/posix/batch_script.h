#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of a batch script.
struct BatchLine {
    enum class Kind { Drive, ChangeFolder, Pause, Exit, Command };

    Kind kind = Kind::Command;
    std::string text;    ///< the line without blanks at its ends
    std::string folder;  ///< of ChangeFolder, without quotes
};

/// The lines of a script that say something, in their order. Lines end in CRLF or LF.
std::vector<BatchLine> parseBatch(std::string_view script);

}  // namespace platform
