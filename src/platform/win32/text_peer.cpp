#include "platform/win32/control_peer.h"
#include "platform/win32/peers.h"

namespace win32 {

namespace {

/// Lines end with CRLF in the model and in the window alike.
class TextPeer : public PeerOf<forms::TextBox> {
  public:
    TextPeer(forms::TextBox& box, const Site& site)
        : PeerOf(box, site, {L"EDIT", styleOf(box), WS_EX_CLIENTEDGE}) {
        send(EM_SETLIMITTEXT, 0);
    }

    void command(int notification) override {
        if (notification == EN_CHANGE && !drawing()) act([this] { control_.type(text()); });
    }
    [[nodiscard]] bool wantsKey(WPARAM key) const override {
        return key == VK_RETURN && control_.takesEnter();
    }

  protected:
    void draw() override {
        if (control_.Visible) drawText(control_.Text);
    }

    /// A box of several lines does not tell that it has been given a text.
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message != WM_SETTEXT) return PeerOf::handle(message, first, second);
        return change(message, first, second, [this] { control_.type(text()); });
    }

  private:
    static DWORD styleOf(const forms::TextBox& box) {
        const DWORD readOnly = box.readOnly ? ES_READONLY : 0;
        const DWORD shape = box.multiLine
                                ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL
                                : ES_AUTOHSCROLL;
        return WS_TABSTOP | readOnly | shape;
    }
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::TextBox& box, const Site& site) {
    return std::make_unique<TextPeer>(box, site);
}

}  // namespace win32
