#pragma once

#include <span>

#include "platform/windows/win32/control_peer.h"

namespace win32 {

/// Adds the tooltips of controls in a form's window.
void addTooltips(HWND window, std::span<ControlPeer* const> peers);

}  // namespace win32
