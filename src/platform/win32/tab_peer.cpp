#include "platform/win32/common_controls.h"
#include "platform/win32/control_peer.h"
#include "platform/win32/peers.h"
#include "platform/win32/units.h"
#include "platform/windows/wide.h"

namespace win32 {

namespace {

/// Draws the tabs and an empty page. The panels of the form lie on the page, above it.
class TabPeer : public PeerOf<forms::TabStrip> {
  public:
    TabPeer(forms::TabStrip& tabs, const Site& site)
        : PeerOf(tabs, site, {WC_TABCONTROLW, WS_TABSTOP | TCS_TOOLTIPS}) {
        for (int index = 0; index < static_cast<int>(tabs.Tabs.size()); ++index)
            addTab(index, tabs.Tabs[index]);
    }

    /// A click on the selected tab counts too, and changes nothing that the window would tell.
    void notify(const NMHDR& notification) override {
        if (notification.code == TCN_SELCHANGE) {
            turnedByMouse_ = GetKeyState(VK_LBUTTON) < 0;
            pick();
        } else if (notification.code == NM_CLICK && !std::exchange(turnedByMouse_, false)) {
            pick();
        }
    }

    /// The page ends where the window does, so that its edges stay in sight.
    void fitInto(const RECT& room) override {
        room_ = room;
        updateGeometry();
        // The panels were made later, and so would lie below.
        SetWindowPos(window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

  protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message == WM_NOTIFY &&
            reinterpret_cast<const NMHDR*>(second)->code == TTN_GETDISPINFOW) {
            tell(*reinterpret_cast<NMTTDISPINFOW*>(second));
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

    /// The text, which a tooltip asks for each time that it appears, for the tab with the index.
    void tell(NMTTDISPINFOW& tooltip) {
        tip_ = platform::wide(control_.Tabs.at(tooltip.hdr.idFrom).tooltip);
        tooltip.lpszText = tip_.data();
    }

    RECT room_{};
    std::wstring tip_;
    bool turnedByMouse_ = false;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, const Site& site) {
    return std::make_unique<TabPeer>(tabs, site);
}

}  // namespace win32
