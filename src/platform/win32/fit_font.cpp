#include "platform/win32/fit_font.h"

#include <algorithm>

namespace win32 {

LOGFONTW fittingFont(const std::vector<ControlPeer*>& peers, int dpi) {
    constexpr double smallest = 7;
    constexpr double step = 0.5;
    LOGFONTW font = messageFont(dpi);
    for (double points = pointsOf(font, dpi); points > smallest; points -= step) {
        font = withPoints(font, points, dpi);
        const Font made = makeFont(font);
        const Ruler ruler(made.get(), dpi);
        if (std::all_of(peers.begin(), peers.end(),
                        [&](const ControlPeer* peer) { return peer->fits(ruler); }))
            return font;
    }
    return withPoints(font, smallest, dpi);
}

}  // namespace win32
