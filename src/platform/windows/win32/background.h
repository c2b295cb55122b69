#pragma once

#include "forms/controls.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Returns the colour in the middle of a tab strip's page, as the visual style draws it.
COLORREF tabPageColour();

/// Returns the background colour of a form or container. Panels beside a tab strip lie on its page,
/// which has the colour `tabPage`.
COLORREF backgroundOf(forms::Container& container, COLORREF tabPage);

/// Returns a brush of the colour, valid until the next call for the same device.
HBRUSH brush(HDC device, COLORREF colour);

/// Fills the window's client area.
void fill(HWND window, HDC device, COLORREF colour);

}  // namespace win32
