#pragma once

#include <string>

#include "forms/application.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Shows a file dialog above the owner. Returns an empty string if the user cancels. Does not offer
/// a name that is invalid or longer than 260 characters. Throws forms::RuntimeError if the chosen
/// name is longer than that.
std::string chooseFile(HWND owner, const forms::FileQuestion& question);

}  // namespace win32
