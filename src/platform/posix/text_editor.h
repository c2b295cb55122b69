#pragma once

#include <string>

#include "platform/posix/invocation.h"

namespace platform {

/// The user's plain text editor: the desktop's default, else a known one with windows, else the one
/// that the environment names for the terminal. file is the host's path, empty for none. Throws
/// RuntimeError if no editor is found. Each system brings its own.
Invocation textEditor(const std::string& file);

}  // namespace platform
