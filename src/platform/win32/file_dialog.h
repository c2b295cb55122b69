#pragma once

#include <string>

#include "forms/application.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Asks for a file above the owner; empty if the user cancels. A name that cannot be a file's, or
/// is longer than 260 characters, is not offered. Throws forms::RuntimeError if the name chosen is
/// longer than that.
std::string chooseFile(HWND owner, const forms::FileQuestion& question);

}  // namespace win32
