#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// The font, no smaller than 7 points, in the largest size up to its own in which every caption
/// fits its place in a form that is laid out with dpi pixels to the inch.
LOGFONTW fittingFont(forms::Form& form, const LOGFONTW& font, int dpi);

}  // namespace win32
