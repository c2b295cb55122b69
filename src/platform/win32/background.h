#pragma once

#include "forms/controls.h"
#include "platform/win32/windows_api.h"

namespace win32 {

/// The colour behind the controls of a form or container: that of a tab strip's page for the
/// panels that lie on one.
COLORREF backgroundOf(forms::Container& container);

/// A brush for the device and the colour, good until the next call for the same device.
HBRUSH brush(HDC device, COLORREF colour);

/// Fills the window's client area.
void fill(HWND window, HDC device, COLORREF colour);

}  // namespace win32
