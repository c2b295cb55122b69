#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

/// Lines end in CRLF both in the model and in the window.
class TextPeer : public PeerOf<forms::TextBox> {
  public:
    TextPeer(forms::TextBox& box, const Site& site)
        : PeerOf(box, site, {L"EDIT", styleOf(box), WS_EX_CLIENTEDGE}) {
        send(EM_SETLIMITTEXT, 0);
        recalculateRoom();
    }

    void restyle(const Style& style) override {
        PeerOf::restyle(style);
        recalculateRoom();
    }

    void command(int notification) override {
        if (notification == EN_CHANGE && !drawing()) act([this] { control_.type(text()); });
    }

  protected:
    void draw() override {
        if (control_.Visible) drawText(control_.Text);
    }

    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        switch (message) {
            case WM_SETTEXT:  // a box of several lines sends no EN_CHANGE
                return change(message, first, second, [this] { control_.type(text()); });
            case WM_NCCALCSIZE: {
                const LRESULT answer = byDefault(message, first, second);
                centre(*reinterpret_cast<RECT*>(second));
                return answer;
            }
            case WM_NCHITTEST:
                return control_.multiLine ? byDefault(message, first, second) : HTCLIENT;
            case WM_ENABLE:
                RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
                return byDefault(message, first, second);
            case WM_NCPAINT: {
                const LRESULT answer = byDefault(message, first, second);
                fillBands();
                return answer;
            }
            default:
                return PeerOf::handle(message, first, second);
        }
    }

  private:
    /// Centres a single line, which Windows draws at the top: leaves only the line's height, with
    /// bands above and below.
    void centre(RECT& client) {
        const int line = TextMeter(reinterpret_cast<HFONT>(send(WM_GETFONT)), dpi()).lineHeight();
        const int spare = heightOf(client) - line;
        band_ = control_.multiLine || spare < 2 ? 0 : spare / 2;
        client.top += band_;
        client.bottom = band_ ? client.top + line : client.bottom;
    }

    void fillBands() const {
        if (!band_) return;
        RECT client;
        GetClientRect(window(), &client);
        MapWindowPoints(window(), nullptr, reinterpret_cast<POINT*>(&client), 2);
        RECT whole;
        GetWindowRect(window(), &whole);
        OffsetRect(&client, -whole.left, -whole.top);
        const LONG edge = client.left;
        const RECT bands[] = {
            {client.left, client.top - band_, client.right, client.top},
            {client.left, client.bottom, client.right, heightOf(whole) - edge},
        };
        const HDC device = GetWindowDC(window());
        const bool plain = control_.Enabled && !control_.readOnly;
        const auto brush = reinterpret_cast<HBRUSH>(
            SendMessageW(GetParent(window()), plain ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
                         reinterpret_cast<WPARAM>(device), reinterpret_cast<LPARAM>(window())));
        for (const RECT& band : bands)
            FillRect(device, &band, brush);
        ReleaseDC(window(), device);
    }

    /// Makes Windows ask again for the room of the text.
    void recalculateRoom() {
        SetWindowPos(window(), nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    static DWORD styleOf(const forms::TextBox& box) {
        const DWORD readOnly = box.readOnly ? ES_READONLY : 0;
        const DWORD shape = box.multiLine
                                ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL
                                : ES_AUTOHSCROLL;
        return WS_TABSTOP | readOnly | shape;
    }

    int band_ = 0;  ///< height of each band, in pixels
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::TextBox& box, const Site& site) {
    return std::make_unique<TextPeer>(box, site);
}

}  // namespace win32
