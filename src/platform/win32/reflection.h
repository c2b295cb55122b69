#pragma once

#include <optional>

#include "platform/windows/windows_api.h"

namespace win32 {

/// Hands a message that a window gets on behalf of one of its controls to the control's peer, and
/// gives the answer; nothing for any other message. The background is that of the window.
std::optional<LRESULT> reflect(UINT message, WPARAM first, LPARAM second, COLORREF background);

}  // namespace win32
