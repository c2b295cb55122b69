#pragma once

#include <optional>

#include "platform/windows/windows_api.h"

namespace win32 {

/// Passes a message that a window gets on behalf of one of its controls to the control's peer.
/// Returns the answer, or nullopt if the window should handle the message itself. `background` is
/// the window's own.
std::optional<LRESULT> reflect(UINT message, WPARAM first, LPARAM second, COLORREF background);

}  // namespace win32
