#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace win32 {

/// Tells screen readers a name for a window that has no caption of its own.
void setSpokenName(HWND window, const std::string& name);

}  // namespace win32
