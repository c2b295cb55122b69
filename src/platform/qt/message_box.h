#pragma once

#include <string>

#include "core/runtime.h"

namespace qt {

/// Shows a modal box above the active window and waits: core::Runtime::rtcMsgBox for windows. An
/// empty title stands for the application's display name.
core::Runtime::Answer messageBox(const std::string& text, int flags, const std::string& title);

}  // namespace qt
