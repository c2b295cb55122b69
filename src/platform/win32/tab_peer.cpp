#include "platform/win32/common_controls.h"
#include "platform/win32/control_peer.h"
#include "platform/win32/peers.h"
#include "platform/win32/units.h"
#include "platform/win32/wide.h"

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
        lay();
        // The panels were made later, and so would lie below.
        SetWindowPos(window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

  protected:
    void draw() override { send(TCM_SETCURSEL, control_.SelectedItem - 1); }

    [[nodiscard]] RECT place() const override { return within(PeerOf::place(), room_); }

  private:
    void addTab(int index, const forms::TabStrip::Tab& tab) {
        std::wstring caption = platform::wide(tab.caption);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        send(TCM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&item));

        std::wstring tip = platform::wide(tab.tooltip);
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = window();
        tool.uId = index;
        tool.lpszText = tip.data();
        SendMessageW(reinterpret_cast<HWND>(send(TCM_GETTOOLTIPS)), TTM_UPDATETIPTEXTW, 0,
                     reinterpret_cast<LPARAM>(&tool));
    }

    void pick() {
        act([this] { control_.pick(static_cast<int>(send(TCM_GETCURSEL)) + 1); });
    }

    RECT room_{};
    bool turnedByMouse_ = false;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, const Site& site) {
    return std::make_unique<TabPeer>(tabs, site);
}

}  // namespace win32
