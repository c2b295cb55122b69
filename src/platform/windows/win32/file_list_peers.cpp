#include <algorithm>

#include "platform/windows/wide.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

class DrivePeer : public PeerOf<forms::DriveList> {
  public:
    DrivePeer(forms::DriveList& list, const Site& site)
        : PeerOf(list, site, {L"COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST}) {
        for (const std::string& drive : list.drives())
            send(CB_ADDSTRING, 0, platform::wide(drive));
    }

    void command(int notification) override {
        if (notification == CBN_SELENDOK) act([this] { pick(); });
        if (notification == CBN_SELENDCANCEL) update();
    }
    [[nodiscard]] bool wantsKeys() const override { return send(CB_GETDROPPEDSTATE) != 0; }

  protected:
    /// While the list is open, the user has not yet chosen.
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message != CB_SETCURSEL || wantsKeys()) return PeerOf::handle(message, first, second);
        return change(message, first, second, [this] { pick(); });
    }

    void draw() override {
        const auto& drives = control_.drives();
        const auto selected = std::ranges::find(drives, control_.Drive());
        send(CB_SETCURSEL, selected == drives.end() ? -1 : selected - drives.begin());
    }

    /// Sets the window's height, which Windows uses for the open list. The field keeps the height
    /// that its font needs: in a higher one the text may be at the top.
    void updateGeometry() override {
        constexpr LRESULT maxRows = 12;
        const auto edges = 2 * GetSystemMetricsForDpi(SM_CYEDGE, static_cast<UINT>(dpi())) + 2;
        const auto field = static_cast<int>(send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
        RECT room = place();
        room.top += (heightOf(room) - field - edges) / 2;
        room.bottom += static_cast<LONG>(maxRows * send(CB_GETITEMHEIGHT, 0));
        move(room);
    }

  private:
    void pick() { control_.pick(static_cast<int>(send(CB_GETCURSEL))); }
};

/// Indents each row by the depth of its folder.
class FolderPeer : public PeerOf<forms::FolderList> {
  public:
    FolderPeer(forms::FolderList& list, const Site& site)
        : PeerOf(list, site,
                 {L"LISTBOX", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                  WS_EX_CLIENTEDGE}) {}

    void command(int notification) override {
        if (notification == LBN_DBLCLK) choose();
    }
    void enter() override { choose(); }

  protected:
    void draw() override {
        if (drawn_ == control_.Path()) return;  // the user may be moving among the rows
        drawn_ = control_.Path();
        send(WM_SETREDRAW, FALSE);
        send(LB_RESETCONTENT);
        for (const auto& row : control_.rows())
            send(LB_ADDSTRING, 0, std::wstring(3 * row.depth, L' ') + platform::wide(row.name));
        send(LB_SETCURSEL, control_.openRow());
        send(LB_SETTOPINDEX, std::max(0, control_.openRow() - 3));
        send(WM_SETREDRAW, TRUE);
        InvalidateRect(window(), nullptr, TRUE);
    }

  private:
    void choose() {
        act([this] { control_.choose(static_cast<int>(send(LB_GETCURSEL))); });
    }

    std::string drawn_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, const Site& site) {
    return std::make_unique<DrivePeer>(list, site);
}

std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, const Site& site) {
    return std::make_unique<FolderPeer>(list, site);
}

}  // namespace win32
