#include "platform/win32/peers.h"

#include "forms/form.h"
#include "platform/win32/accessibility.h"
#include "platform/win32/units.h"

namespace win32 {

namespace {

/// The control declared in front of this one in the same container, or null.
forms::Control* before(const forms::Control& control) {
    forms::Control* before = nullptr;
    for (forms::Control* sibling : control.parent()->children()) {
        if (sibling == &control) break;
        before = sibling;
    }
    return before;
}

/// The arrow keys move among the options that follow one another, and nowhere else.
bool startsGroup(const forms::Control& control) {
    return !dynamic_cast<const forms::OptionButton*>(&control) ||
           !dynamic_cast<const forms::OptionButton*>(before(control));
}

/// A screen reader calls a window by its caption or by the label before it; else it must be told.
bool isNameless(const forms::Control& control) {
    return control.Caption().empty() && !dynamic_cast<const forms::Label*>(before(control));
}

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
    void visit(forms::MenuItem& item) override { attach(item); }

    void build(forms::Control& control, int id) {
        id_ = id;
        control.accept(*this);
    }

  private:
    template <typename Kind>
    void attach(Kind& control) {
        const auto* container = dynamic_cast<ControlPeer*>(control.parent()->peer());
        const HWND parent = container ? container->window() : window_;
        control.attach(makePeer(control, Site{parent, dpi_, id_, startsGroup(control)}));
    }

    HWND window_;
    int dpi_ = dpiOf(window_);
    int id_ = 0;
};

}  // namespace

std::vector<ControlPeer*> buildPeers(forms::Form& form, HWND window) {
    std::vector<ControlPeer*> peers;
    PeerBuilder builder(window);
    int id = firstId;
    for (forms::Control* control : form.allControls()) {
        builder.build(*control, id++);
        auto* peer = dynamic_cast<ControlPeer*>(control->peer());
        if (!peer) continue;
        peers.push_back(peer);
        if (takesFocus(*control) && isNameless(*control))
            setSpokenName(peer->window(), control->accessibleName());
    }
    return peers;
}

}  // namespace win32
