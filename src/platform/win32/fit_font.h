#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// The system's font for messages, no smaller than 7 points, in the largest size up to its own in
/// which every caption fits its place.
LOGFONTW fittingFont(forms::Form& form, int dpi);

}  // namespace win32
