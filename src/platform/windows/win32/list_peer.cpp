#include <utility>

#include "platform/windows/wide.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/form_window.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

/// Shortens the middle of a long path; a tooltip shows it whole.
class ListPeer : public PeerOf<forms::ListBox> {
  public:
    ListPeer(forms::ListBox& list, const Site& site)
        : PeerOf(list, site,
                 {L"LISTBOX",
                  WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED |
                      LBS_HASSTRINGS,
                  WS_EX_CLIENTEDGE}) {
        send(LB_SETITEMHEIGHT, 0, site.style.lineHeight);
    }

    void restyle(const Style& style) override {
        PeerOf::restyle(style);
        send(LB_SETITEMHEIGHT, 0, style.lineHeight);
    }

    void command(int notification) override {
        if (notification == LBN_SELCHANGE) act([this] { pick(); });
    }

    void drawItem(const DRAWITEMSTRUCT& item) override {
        const auto has = [&item](UINT state) { return (item.itemState & state) != 0; };
        const bool selected = has(ODS_SELECTED);
        FillRect(item.hDC, &item.rcItem,
                 GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        if (static_cast<int>(item.itemID) < count()) {
            const int usual = selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
            SetTextColor(item.hDC, GetSysColor(has(ODS_DISABLED) ? COLOR_GRAYTEXT : usual));
            SetBkMode(item.hDC, TRANSPARENT);
            const std::wstring text = rowText(static_cast<int>(item.itemID));
            RECT room = roomOf(item.rcItem);
            DrawTextW(item.hDC, text.c_str(), -1, &room,
                      DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
        }
        if (has(ODS_FOCUS) && !has(ODS_NOFOCUSRECT)) DrawFocusRect(item.hDC, &item.rcItem);
    }

  protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message == WM_MOUSEMOVE) hover(second);
        if (message != LB_SETCURSEL) return PeerOf::handle(message, first, second);
        return change(message, first, second, [this] { pick(); });
    }

    void draw() override {
        while (count() > control_.ListCount())
            send(LB_DELETESTRING, count() - 1);
        for (int row = 0; row < control_.ListCount(); ++row)
            drawRow(row);
        if (selectedRow() != control_.ListIndex) send(LB_SETCURSEL, control_.ListIndex);
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

    /// Returns the part of a row that its text may fill.
    [[nodiscard]] RECT roomOf(const RECT& row) const {
        const LONG margin = MulDiv(2, dpi(), USER_DEFAULT_SCREEN_DPI);
        return {row.left + margin, row.top, row.right - margin, row.bottom};
    }

    /// Gives the list the tooltip of the row under the mouse, if the row is shortened.
    void hover(LPARAM point) {
        const auto found = send(LB_ITEMFROMPOINT, 0, point);
        const int row = HIWORD(found) != 0 ? -1 : LOWORD(found);
        if (row == std::exchange(hovered_, row)) return;
        RECT place{};
        send(LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
        const TextMeter meter(reinterpret_cast<HFONT>(send(WM_GETFONT)), dpi());
        const bool shortened = row >= 0 && row < control_.ListCount() &&
                               meter.width(control_.List(row)) > widthOf(roomOf(place));
        const auto* form = FormWindow::of(GetAncestor(window(), GA_ROOT));
        form->tooltips().setText(window(), shortened ? control_.List(row) : control_.tooltip);
    }

    [[nodiscard]] std::wstring rowText(int row) const {
        std::wstring text(send(LB_GETTEXTLEN, row), L'\0');
        send(LB_GETTEXT, row, text);
        return text;
    }

    [[nodiscard]] int count() const { return static_cast<int>(send(LB_GETCOUNT)); }
    [[nodiscard]] int selectedRow() const { return static_cast<int>(send(LB_GETCURSEL)); }

    int hovered_ = -1;  ///< the row under the mouse
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, const Site& site) {
    return std::make_unique<ListPeer>(list, site);
}

}  // namespace win32
