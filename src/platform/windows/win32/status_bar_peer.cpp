#include <algorithm>
#include <vector>

#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

using Panel = forms::StatusBar::Panel;

/// Returns the current date or time in the system's short format; empty for a panel of text.
std::wstring now(Panel panel) {
    constexpr int longest = 80;
    wchar_t text[longest] = {};
    if (panel == Panel::Date) {
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, longest,
                        nullptr);
    } else if (panel == Panel::Time) {
        GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr, text, longest);
    }
    return text;
}

class StatusBarPeer : public PeerOf<forms::StatusBar> {
  public:
    StatusBarPeer(forms::StatusBar& bar, const Site& site)
        : PeerOf(bar, site, {STATUSCLASSNAMEW, SBARS_SIZEGRIP}), texts_(bar.Panels.size()) {
        constexpr int everySecond = 1000;
        SetTimer(window(), 1, everySecond, [](HWND bar, UINT, UINT_PTR, DWORD) {
            if (auto* peer = ControlPeer::of(bar)) peer->update();
        });
    }

    void takeEdge(RECT& room) override {
        send(WM_SIZE);  // the bar moves to its place by itself
        RECT bar;
        GetWindowRect(window(), &bar);
        room.bottom -= heightOf(bar);
        setParts(room.right);
    }

  protected:
    void updateGeometry() override {}

    /// Sets the texts only if one has changed.
    void draw() override {
        const std::vector<std::wstring> before = texts_;
        std::ranges::transform(control_.Panels, texts_.begin(), now);
        if (texts_ == before) return;
        RECT room;
        GetClientRect(window(), &room);
        setParts(room.right);
        for (std::size_t part = 0; part < texts_.size(); ++part)
            send(SB_SETTEXTW, part, texts_[part]);
    }

  private:
    /// Aligns the texts to the right, before the grip; the empty panel takes the rest.
    void setParts(int width) {
        const TextMeter meter(reinterpret_cast<HFONT>(send(WM_GETFONT)), dpi());
        std::vector<int> ends(texts_.size());
        int end = width - meter.scaled(18);
        for (std::size_t part = texts_.size(); part-- > 0;) {
            ends[part] = end;
            end -= meter.width(platform::narrow(texts_[part])) + meter.scaled(16);
        }
        send(SB_SETPARTS, ends.size(), reinterpret_cast<LPARAM>(ends.data()));
    }

    std::vector<std::wstring> texts_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, const Site& site) {
    return std::make_unique<StatusBarPeer>(bar, site);
}

}  // namespace win32
