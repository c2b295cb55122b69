#pragma once

#include <string>

#include "core/runtime.h"

namespace win32 {

/// Shows a modal message box above the active window and returns the button pressed, as
/// core::Runtime::rtcMsgBox does. The title is never empty. Shows nothing and answers No while the
/// session ends.
core::Runtime::Answer messageBox(const std::string& text, int flags, const std::string& title);

}  // namespace win32
