#include <algorithm>

#include "platform/windows/wide.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"

namespace win32 {

namespace {

class ListPeer : public PeerOf<forms::ListBox> {
  public:
    ListPeer(forms::ListBox& list, const Site& site)
        : PeerOf(
              list, site,
              {L"LISTBOX", WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
               WS_EX_CLIENTEDGE}) {}

    void command(int notification) override {
        if (notification == LBN_SELCHANGE) act([this] { pick(); });
    }

  protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message != LB_SETCURSEL) return PeerOf::handle(message, first, second);
        return change(message, first, second, [this] { pick(); });
    }

    void draw() override {
        while (count() > control_.ListCount())
            send(LB_DELETESTRING, count() - 1);
        for (int row = 0; row < control_.ListCount(); ++row)
            drawRow(row);
        if (selectedRow() != control_.ListIndex) send(LB_SETCURSEL, control_.ListIndex);
        showWholeRows();
    }

  private:
    void pick() {
        const int row = selectedRow();
        if (row >= 0 && row != control_.ListIndex) control_.pick(row);
    }

    void drawRow(int row) {
        const std::wstring wanted = platform::wide(control_.List(row));
        if (row < count()) {
            if (rowText(row) == wanted) return;
            send(LB_DELETESTRING, row);
        }
        send(LB_INSERTSTRING, row, wanted);
    }

    /// Lets the user scroll sideways if an entry is wider than the list.
    void showWholeRows() {
        const TextMeter meter(reinterpret_cast<HFONT>(send(WM_GETFONT)), 96);
        int widest = 0;
        for (int row = 0; row < control_.ListCount(); ++row)
            widest = std::max(widest, meter.width(control_.List(row)) + meter.lineHeight() / 2);
        send(LB_SETHORIZONTALEXTENT, widest);
    }

    [[nodiscard]] std::wstring rowText(int row) const {
        std::wstring text(send(LB_GETTEXTLEN, row), L'\0');
        send(LB_GETTEXT, row, text);
        return text;
    }

    [[nodiscard]] int count() const { return static_cast<int>(send(LB_GETCOUNT)); }
    [[nodiscard]] int selectedRow() const { return static_cast<int>(send(LB_GETCURSEL)); }
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, const Site& site) {
    return std::make_unique<ListPeer>(list, site);
}

}  // namespace win32
