#pragma once

#include <string>

#include "core/runtime.h"

namespace qt {

/// Shows a modal message box above the active window and returns the button pressed, as
/// core::Runtime::rtcMsgBox does. The title is never empty. While the session ends there is no box:
/// the text goes to standard error, and the answer is No.
core::Runtime::Answer messageBox(const std::string& text, int flags, const std::string& title);

}  // namespace qt
