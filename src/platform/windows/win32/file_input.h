#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Types the path of a file dropped on the form's window into the text box that dropTarget picks.
/// Ignores a drop of several files. Releases the drop, given as the WPARAM of WM_DROPFILES.
void takeDrop(forms::Form& form, HWND window, WPARAM parameter);

}  // namespace win32
