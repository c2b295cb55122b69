#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"

namespace win32 {

namespace {

/// The common part of the three kinds of button: a caption and a click.
template <typename Kind>
class ClickPeer : public PeerOf<Kind> {
  public:
    ClickPeer(Kind& control, const Site& site, DWORD style)
        : PeerOf<Kind>(control, site, {L"BUTTON", style | WS_TABSTOP}) {}

    void command(int notification) override {
        if (notification == BN_CLICKED && !takingFocus_) click();
    }
    [[nodiscard]] bool transparent() const override { return true; }

  protected:
    void draw() override { this->drawText(this->control_.Caption); }
    void click() {
        this->act([this] { this->control_.click(); });
    }

    /// Windows reports an option as clicked when it gets the focus, even if the focus only returns
    /// to the window.
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message == WM_SETFOCUS) takingFocus_ = true;
        const LRESULT answer = PeerOf<Kind>::handle(message, first, second);
        if (message == WM_SETFOCUS) takingFocus_ = false;
        return answer;
    }

  private:
    bool takingFocus_ = false;
};

class ButtonPeer : public ClickPeer<forms::Button> {
  public:
    ButtonPeer(forms::Button& button, const Site& site)
        : ClickPeer(button, site, button.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) {}

    void enter() override { click(); }
    void showDefault(bool isDefault) override {
        const LONG style = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((GetWindowLongW(window(), GWL_STYLE) & BS_TYPEMASK) != style)
            send(BM_SETSTYLE, style, TRUE);
    }
};

/// Check boxes and options, which show their value by a mark before the caption. Only the model
/// sets the mark.
template <typename Kind>
class MarkPeer : public ClickPeer<Kind> {
  public:
    using ClickPeer<Kind>::ClickPeer;

  protected:
    void draw() override {
        ClickPeer<Kind>::draw();
        const WPARAM mark = this->control_.Value ? BST_CHECKED : BST_UNCHECKED;
        if (this->send(BM_GETCHECK) != static_cast<LRESULT>(mark)) this->send(BM_SETCHECK, mark);
    }

    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        if (message != BM_SETCHECK) return ClickPeer<Kind>::handle(message, first, second);
        return this->change(message, first, second, [&] {
            if ((first == BST_CHECKED) != static_cast<bool>(this->control_.Value))
                this->control_.click();
        });
    }
};

class OptionPeer : public MarkPeer<forms::OptionButton> {
  public:
    OptionPeer(forms::OptionButton& option, const Site& site)
        : MarkPeer(option, site, BS_RADIOBUTTON) {}

  protected:
    /// Windows makes a tab stop of each option that it marks.
    void draw() override {
        MarkPeer::draw();
        const LONG style = GetWindowLongW(window(), GWL_STYLE);
        const LONG wanted = control_.isTabStop() ? style | WS_TABSTOP : style & ~WS_TABSTOP;
        if (wanted != style) SetWindowLongW(window(), GWL_STYLE, wanted);
    }
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::Button& button, const Site& site) {
    return std::make_unique<ButtonPeer>(button, site);
}

std::unique_ptr<forms::Peer> makePeer(forms::CheckBox& box, const Site& site) {
    return std::make_unique<MarkPeer<forms::CheckBox>>(box, site, BS_CHECKBOX);
}

std::unique_ptr<forms::Peer> makePeer(forms::OptionButton& option, const Site& site) {
    return std::make_unique<OptionPeer>(option, site);
}

}  // namespace win32
