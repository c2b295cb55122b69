#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Returns the resolution in which the form of a window is laid out, in pixels per inch: that of
/// its screen or, as far as the screen has room, the one in which every caption fits in the
/// system's message font. So all texts have the size that the user has chosen for menus and boxes.
int layoutDpi(forms::Form& form, HWND window);

/// Returns the font in the largest size, from 7 points to its own, in which every caption of the
/// form fits. It is smaller than its own only if the screen is too small for `layoutDpi`. `dpi` is
/// the resolution of the form's layout, in pixels per inch.
LOGFONTW fittingFont(forms::Form& form, const LOGFONTW& font, int dpi);

}  // namespace win32
