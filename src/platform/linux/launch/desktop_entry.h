#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/launch/invocation.h"

namespace platform {

/// Returns the user's default program for a MIME type ("text/plain"), with `file`, a host path, as
/// its argument unless empty. Returns nullopt if there is no such program.
std::optional<Invocation> defaultProgram(const std::string& mimeType, const std::string& file);

/// Returns the words of a desktop entry's Exec line, with the field codes replaced by the file.
std::vector<std::string> execWords(const std::string& exec, const std::string& file);

}  // namespace platform
