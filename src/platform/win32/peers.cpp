#include "platform/win32/peers.h"

#include "forms/form.h"

namespace win32 {

namespace {

class PeerBuilder : public forms::ControlVisitor {
  public:
    explicit PeerBuilder(HWND window) : window_(window) {}

    void visit(forms::Label& label) override { attach(label); }
    void visit(forms::Line& line) override { attach(line); }
    void visit(forms::Image& image) override { attach(image); }
    void visit(forms::Button& button) override { attach(button); }
    void visit(forms::CheckBox& box) override { attach(box); }
    void visit(forms::OptionButton& option) override { attach(option); }
    void visit(forms::TextBox& box) override { attach(box); }
    void visit(forms::Frame& frame) override { attach(frame); }
    void visit(forms::PictureBox& panel) override { attach(panel); }
    void visit(forms::ListBox& list) override { attach(list); }
    void visit(forms::DriveList& list) override { attach(list); }
    void visit(forms::FolderList& list) override { attach(list); }
    void visit(forms::TabStrip& tabs) override { attach(tabs); }
    void visit(forms::StatusBar& bar) override { attach(bar); }
    void visit(forms::MenuItem& item) override { item.attach(makePeer(item, window_, id_)); }

    void build(forms::Control& control, int id) {
        id_ = id;
        control.accept(*this);
    }

  private:
    template <typename Kind>
    void attach(Kind& control) {
        const auto* container = dynamic_cast<ControlPeer*>(control.parent()->peer());
        control.attach(makePeer(control, container ? container->window() : window_));
    }

    HWND window_;
    int id_ = 0;
};

/// The arrow keys move among the options that follow one another, and nowhere else.
bool startsGroup(forms::Control& control) {
    forms::Control* before = nullptr;
    for (forms::Control* sibling : control.parent()->children()) {
        if (sibling == &control) break;
        before = sibling;
    }
    return !dynamic_cast<forms::OptionButton*>(&control) ||
           !dynamic_cast<forms::OptionButton*>(before);
}

}  // namespace

std::vector<ControlPeer*> buildPeers(forms::Form& form, HWND window) {
    std::vector<ControlPeer*> peers;
    PeerBuilder builder(window);
    int id = firstId;
    for (forms::Control* control : form.allControls()) {
        builder.build(*control, id);
        if (auto* peer = dynamic_cast<ControlPeer*>(control->peer())) {
            peers.push_back(peer);
            SetWindowLongPtrW(peer->window(), GWLP_ID, id);
            const LONG style = GetWindowLongW(peer->window(), GWL_STYLE);
            if (startsGroup(*control)) SetWindowLongW(peer->window(), GWL_STYLE, style | WS_GROUP);
        }
        ++id;
    }
    return peers;
}

}  // namespace win32
