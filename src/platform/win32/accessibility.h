#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace win32 {

/// Tells screen readers a name for a window whose caption does not tell it.
void setSpokenName(HWND window, const std::string& name);

}  // namespace win32
