#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

/// Shows the tabs and an empty page, below the form's panels.
class TabPeer : public PeerOf<forms::TabStrip> {
  public:
    TabPeer(forms::TabStrip& tabs, const Site& site)
        : PeerOf(tabs, site, {WC_TABCONTROLW, WS_TABSTOP | TCS_TOOLTIPS}) {
        setPadding(site.style);
        for (int index = 0; index < static_cast<int>(tabs.Tabs.size()); ++index)
            addTab(index, tabs.Tabs[index]);
    }

    void restyle(const Style& style) override {
        setPadding(style);
        PeerOf::restyle(style);  // the new font makes the window lay out the tabs again
    }

    /// A click on the selected tab counts too, but sends no TCN_SELCHANGE.
    void notify(const NMHDR& notification) override {
        if (notification.code == TCN_SELCHANGE) {
            selectedByMouse_ = GetKeyState(VK_LBUTTON) < 0;
            pick();
        } else if (notification.code == NM_CLICK && !std::exchange(selectedByMouse_, false)) {
            pick();
        }
    }

    /// Clips the page to the window, so that its edges stay visible.
    void fitInto(const RECT& room) override {
        room_ = room;
        updateGeometry();
        // The panels were created later, so they would be below.
        SetWindowPos(window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

  protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message == WM_NOTIFY &&
            reinterpret_cast<const NMHDR*>(second)->code == TTN_GETDISPINFOW) {
            setText(*reinterpret_cast<NMTTDISPINFOW*>(second));
            return 0;
        }
        if (message != TCM_SETCURSEL) return PeerOf::handle(message, first, second);
        return change(message, first, second, [this] {
            if (selected() != control_.SelectedItem) control_.pick(selected());
        });
    }

    void draw() override { send(TCM_SETCURSEL, control_.SelectedItem - 1); }

    [[nodiscard]] RECT place() const override { return within(PeerOf::place(), room_); }

  private:
    /// Scales the padding with the resolution, which the window does not do.
    void setPadding(const Style& style) const {
        send(TCM_SETPADDING, 0, MAKELPARAM(pixels(90, style.dpi), pixels(45, style.dpi)));
    }

    void addTab(int index, const forms::TabStrip::Tab& tab) {
        std::wstring caption = platform::wide(tab.caption);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        send(TCM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&item));
    }

    [[nodiscard]] int selected() const { return static_cast<int>(send(TCM_GETCURSEL)) + 1; }
    void pick() {
        act([this] { control_.pick(selected()); });
    }

    /// Gives a tooltip the text of its tab, which it requests each time that it appears.
    void setText(NMTTDISPINFOW& tooltip) {
        tip_ = platform::wide(control_.Tabs.at(tooltip.hdr.idFrom).tooltip);
        tooltip.lpszText = tip_.data();
    }

    RECT room_{};
    std::wstring tip_;
    bool selectedByMouse_ = false;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, const Site& site) {
    return std::make_unique<TabPeer>(tabs, site);
}

}  // namespace win32
