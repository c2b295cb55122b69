#pragma once

#include <string>

#include "platform/linux/launch/invocation.h"

namespace platform {

/// Returns the user's text editor, ready to open `file`, a host path or empty: the desktop's
/// default, else a known graphical one, else the one that the environment names for the terminal.
/// Throws RuntimeError if no editor is found.
Invocation textEditor(const std::string& file);

}  // namespace platform
