#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/disk/host_path.h"

namespace platform {

/// One line of a batch script.
struct BatchLine {
    /// A Command starts with the path of a program in double quotes, or with "notepad". Any
    /// line that is nothing else is Unknown, and must do nothing.
    enum class Kind { Drive, ChangeFolder, Pause, Exit, Command, Unknown };

    Kind kind = Kind::Unknown;
    std::string text;    ///< the line, trimmed
    std::string folder;  ///< the argument of ChangeFolder, without quotes
};

/// Returns the text of a script file. Throws RuntimeError if it cannot be read, or if
/// another user owns it or may change it: it is then not surely what the workbench wrote.
std::string readBatch(const HostPath& file);

/// Returns the non-blank lines of a script. Lines end in CRLF or LF.
std::vector<BatchLine> parseBatch(std::string_view script);

}  // namespace platform
