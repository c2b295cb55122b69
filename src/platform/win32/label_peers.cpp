#include <algorithm>

#include "platform/win32/control_peer.h"
#include "platform/win32/peers.h"
#include "platform/win32/units.h"

namespace win32 {

namespace {

/// A label wraps its text where it is high enough for a second line, and otherwise leaves out a
/// part of a text that is too long. It takes clicks upon itself, so that they do not count as its
/// container's.
class LabelPeer : public PeerOf<forms::Label> {
  public:
    LabelPeer(forms::Label& label, const Site& site)
        : PeerOf(label, site, {L"STATIC", SS_NOTIFY | prefix(label)}) {}

    [[nodiscard]] bool transparent() const override { return true; }

    [[nodiscard]] bool fits(const Ruler& ruler) const override {
        if (control_.font.points > 0) return true;  // the form's font does not matter
        const RECT place = placeOf(control_, ruler.dpi());
        if (heightOf(place) >= 2 * ruler.lineHeight())
            return ruler.wrappedHeight(control_.Caption, widthOf(place)) <= heightOf(place);
        return ruler.width(control_.Caption) <= widthOf(place) &&
               ruler.lineHeight() <= heightOf(place);
    }

  protected:
    void draw() override { drawText(control_.Caption); }

    void lay() override {
        ControlPeer::lay();
        const Ruler ruler(reinterpret_cast<HFONT>(send(WM_GETFONT)), dpi());
        const bool wraps = heightOf(place()) >= 2 * ruler.lineHeight();
        const DWORD oneLine = SS_CENTERIMAGE | SS_PATHELLIPSIS |
                              static_cast<DWORD>(control_.centred ? SS_CENTER : SS_LEFTNOWORDWRAP);
        const DWORD lines = control_.centred ? SS_CENTER : SS_LEFT;
        constexpr DWORD fixed = ~static_cast<DWORD>(SS_TYPEMASK | SS_CENTERIMAGE | SS_ELLIPSISMASK);
        const auto style = static_cast<DWORD>(GetWindowLongW(window(), GWL_STYLE));
        const DWORD wanted = (style & fixed) | (wraps ? lines : oneLine);
        if (style != wanted) SetWindowLongW(window(), GWL_STYLE, static_cast<LONG>(wanted));
    }

  private:
    static DWORD prefix(const forms::Label& label) { return label.mnemonic() ? 0 : SS_NOPREFIX; }
};

class LinePeer : public PeerOf<forms::Line> {
  public:
    LinePeer(forms::Line& line, const Site& site)
        : PeerOf(line, site,
                 {L"STATIC",
                  static_cast<DWORD>(line.Width > line.Height ? SS_ETCHEDHORZ : SS_ETCHEDVERT)}) {}
    [[nodiscard]] bool transparent() const override { return true; }

  protected:
    /// An etched line is two pixels thick.
    [[nodiscard]] RECT place() const override {
        RECT place = PeerOf::place();
        place.right = std::max(place.right, place.left + 2);
        place.bottom = std::max(place.bottom, place.top + 2);
        return place;
    }
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::Label& label, const Site& site) {
    return std::make_unique<LabelPeer>(label, site);
}

std::unique_ptr<forms::Peer> makePeer(forms::Line& line, const Site& site) {
    return std::make_unique<LinePeer>(line, site);
}

}  // namespace win32
