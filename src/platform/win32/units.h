#pragma once

#include "forms/control.h"
#include "platform/windows/windows_api.h"

/// Twips of the forms and pixels of the screen, of which there are `dpi` to the inch.
namespace win32 {

inline constexpr int twipsPerInch = 1440;

inline int pixels(int twips, int dpi) {
    return MulDiv(twips, dpi, twipsPerInch);
}

inline int twips(int pixels, int dpi) {
    return MulDiv(pixels, twipsPerInch, dpi);
}

/// Without a screen the system knows no resolution of a window.
inline int dpiOf(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return static_cast<int>(dpi ? dpi : USER_DEFAULT_SCREEN_DPI);
}

/// Where a control lies in its container. Each edge is rounded by itself, so that controls which
/// meet in twips meet on the screen.
inline RECT placeOf(const forms::Control& control, int dpi) {
    return {pixels(control.Left, dpi), pixels(control.Top, dpi),
            pixels(control.Left + control.Width, dpi), pixels(control.Top + control.Height, dpi)};
}

inline int widthOf(const RECT& rect) {
    return rect.right - rect.left;
}

inline int heightOf(const RECT& rect) {
    return rect.bottom - rect.top;
}

/// The part of the place that lies in the room; all of it if none does.
inline RECT within(const RECT& place, const RECT& room) {
    RECT seen;
    return IntersectRect(&seen, &place, &room) ? seen : place;
}

}  // namespace win32
