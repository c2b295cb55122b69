#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Returns the font in the largest size, from 7 points to its own, in which every caption of the
/// form fits. `dpi` is the resolution of the form's layout, in pixels per inch.
LOGFONTW fittingFont(forms::Form& form, const LOGFONTW& font, int dpi);

}  // namespace win32
