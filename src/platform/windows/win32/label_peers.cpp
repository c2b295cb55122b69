#include <algorithm>

#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/picture.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

/// Wraps its text if it is high enough for a second line, and otherwise elides a part of a text
/// that is too long. Handles clicks, so that they do not count as its container's.
class LabelPeer : public PeerOf<forms::Label> {
  public:
    LabelPeer(forms::Label& label, const Site& site)
        : PeerOf(label, site, {L"STATIC", SS_NOTIFY | prefix(label) | lines(label, site.style)}) {
        // Keep it above the controls created before it, whatever its size.
        if (label.autoSize)
            SetWindowPos(window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    [[nodiscard]] bool transparent() const override { return true; }

    void restyle(const Style& style) override {
        PeerOf::restyle(style);
        constexpr DWORD fixed = ~static_cast<DWORD>(SS_TYPEMASK | SS_CENTERIMAGE | SS_ELLIPSISMASK);
        const auto now = static_cast<DWORD>(GetWindowLongW(window(), GWL_STYLE));
        SetWindowLongW(window(), GWL_STYLE,
                       static_cast<LONG>((now & fixed) | lines(control_, style)));
    }

  protected:
    void draw() override { drawText(control_.Caption); }

    [[nodiscard]] RECT place() const override {
        RECT place = PeerOf::place();
        if (!control_.autoSize) return place;
        const TextMeter meter(reinterpret_cast<HFONT>(send(WM_GETFONT)), dpi());
        const int slant = control_.font.italic ? meter.lineHeight() / 4 : 0;
        const LONG width = meter.width(control_.Caption) + slant;
        if (control_.centred) place.left += (widthOf(place) - width) / 2;
        return {place.left, place.top, place.left + width, place.top + meter.lineHeight()};
    }

  private:
    static DWORD lines(const forms::Label& label, const Style& style) {
        const bool wraps = heightOf(placeOf(label, style.dpi)) >= 2 * lineHeight(label, style);
        if (wraps) return label.centred ? SS_CENTER : SS_LEFT;
        return SS_CENTERIMAGE | SS_PATHELLIPSIS |
               static_cast<DWORD>(label.centred ? SS_CENTER : SS_LEFTNOWORDWRAP);
    }
    static int lineHeight(const forms::Label& label, const Style& style) {
        if (label.font == forms::Font()) return style.lineHeight;
        const Font font = makeFont(wantedFont(label.font, style.font, style.dpi));
        return TextMeter(font.get(), style.dpi).lineHeight();
    }
    static DWORD prefix(const forms::Label& label) { return label.mnemonic() ? 0 : SS_NOPREFIX; }
};

class LinePeer : public PeerOf<forms::Line> {
  public:
    LinePeer(forms::Line& line, const Site& site)
        : PeerOf(line, site,
                 {L"STATIC", static_cast<DWORD>(line.light ? SS_WHITERECT : SS_GRAYRECT)}) {}

  protected:
    [[nodiscard]] RECT place() const override {
        RECT place = PeerOf::place();
        place.right = std::max(place.right, place.left + 1);
        place.bottom = std::max(place.bottom, place.top + 1);
        return place;
    }
};

/// A picture, stretched to the control. Handles clicks, so that they do not count as its
/// container's.
class ImagePeer : public PeerOf<forms::Image> {
  public:
    ImagePeer(forms::Image& image, const Site& site)
        : PeerOf(image, site, {L"STATIC", SS_OWNERDRAW | SS_NOTIFY}) {}

    [[nodiscard]] bool transparent() const override { return true; }

    void drawItem(const DRAWITEMSTRUCT& item) override {
        const int width = widthOf(item.rcItem);
        const int height = heightOf(item.rcItem);
        const auto brush = reinterpret_cast<HBRUSH>(
            SendMessageW(GetParent(window()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(item.hDC),
                         reinterpret_cast<LPARAM>(window())));
        FillRect(item.hDC, &item.rcItem, brush);
        DrawIconEx(item.hDC, 0, 0, picture_.get(), width, height, 0, nullptr, DI_NORMAL);
    }

  protected:
    void updateGeometry() override {
        ControlPeer::updateGeometry();
        const SIZE size{widthOf(place()), heightOf(place())};
        if (size.cx == size_.cx && size.cy == size_.cy) return;
        size_ = size;
        picture_ = loadPicture(control_.picture, size.cx, size.cy);
        InvalidateRect(window(), nullptr, TRUE);
    }

  private:
    SIZE size_{};
    Icon picture_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::Label& label, const Site& site) {
    return std::make_unique<LabelPeer>(label, site);
}

std::unique_ptr<forms::Peer> makePeer(forms::Line& line, const Site& site) {
    return std::make_unique<LinePeer>(line, site);
}

std::unique_ptr<forms::Peer> makePeer(forms::Image& image, const Site& site) {
    return std::make_unique<ImagePeer>(image, site);
}

}  // namespace win32
