#pragma once

#include <vector>

#include "platform/win32/control_peer.h"

namespace win32 {

/// The system's font for messages, no smaller than 7 points, in the largest size up to its own in
/// which every caption fits its place.
LOGFONTW fittingFont(const std::vector<ControlPeer*>& peers, int dpi);

}  // namespace win32
