#pragma once

#include "forms/control.h"
#include "platform/windows/windows_api.h"

/// Converts between twips of the forms and pixels of the screen, `dpi` of them to the inch.
namespace win32 {

inline constexpr int twipsPerInch = 1440;

inline int pixels(int twips, int dpi) {
    return MulDiv(twips, dpi, twipsPerInch);
}

inline int twips(int pixels, int dpi) {
    return MulDiv(pixels, twipsPerInch, dpi);
}

/// Returns a window's resolution, or a default without a screen.
inline int dpiOf(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return static_cast<int>(dpi ? dpi : USER_DEFAULT_SCREEN_DPI);
}

/// Returns the place of a control in its container. Rounds each edge separately, so that controls
/// that touch in twips also touch on the screen.
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

/// Returns the part of the place inside the room, or all of it if there is none.
inline RECT within(const RECT& place, const RECT& room) {
    RECT seen;
    return IntersectRect(&seen, &place, &room) ? seen : place;
}

}  // namespace win32
