#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/posix/invocation.h"

namespace platform {

/// The program that the desktop opens files of a type with ("text/plain"), ready to open the host's
/// file, or nothing at all if file is empty; nothing if the user has no such program.
std::optional<Invocation> defaultProgram(const std::string& mimeType, const std::string& file);

/// The words of the Exec line of a desktop entry, its field codes replaced by the file.
std::vector<std::string> execWords(const std::string& exec, const std::string& file);

}  // namespace platform
