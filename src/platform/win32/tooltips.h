#pragma once

#include <span>

#include "platform/win32/control_peer.h"

namespace win32 {

/// Gives controls of a form's window their tooltips.
void addTooltips(HWND window, std::span<ControlPeer* const> peers);

}  // namespace win32
