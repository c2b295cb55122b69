#pragma once

#include <vector>

#include "platform/win32/control_peer.h"

namespace win32 {

/// Gives the controls of a form's window their tooltips.
void addTooltips(HWND window, const std::vector<ControlPeer*>& peers);

}  // namespace win32
