#pragma once

#include <string>

#include "core/runtime.h"

namespace win32 {

/// Shows a modal box above the active window and waits, as core::Runtime::rtcMsgBox has it, but
/// with a title in any case.
core::Runtime::Answer messageBox(const std::string& text, int flags, const std::string& title);

}  // namespace win32
