#include "platform/windows/win32/peers.h"

#include <algorithm>

#include "forms/form.h"

namespace win32 {

namespace {

/// Returns the control declared before this one in the same container, or null.
forms::Control* before(const forms::Control& control) {
    const auto& siblings = control.parent()->children();
    const auto self = std::ranges::find(siblings, &control);
    return self == siblings.begin() ? nullptr : self[-1];
}

/// The arrow keys only move among consecutive options.
bool startsGroup(forms::Control& control) {
    forms::Control* const last = before(control);
    return !control.option() || !last || !last->option();
}

/// Screen readers name a window by its caption or by the label before it; otherwise it needs a
/// name.
bool needsAccessibleName(const forms::Control& control) {
    const forms::Control* const last = before(control);
    return !control.definedAccessibleName.empty() ||
           (control.Caption().empty() && (!last || last->nameForNext().empty()));
}

int idOf(forms::Control& control) {
    const auto controls = control.form().allControls();
    const auto found = std::ranges::find(controls, &control);
    return firstId + static_cast<int>(found - controls.begin());
}

/// Creates the peers of the controls in a container and in the containers inside it.
class PeerBuilder : public forms::ControlVisitor {
  public:
    PeerBuilder(HWND parent, const Style& style, std::vector<ControlPeer*>& peers)
        : parent_(parent), style_(style), peers_(peers) {}

    void fill(const forms::Container& container) {
        for (forms::Control* control : container.children())
            control->accept(*this);
    }

    void visit(forms::Label& label) override { attach(label); }
    void visit(forms::Line& line) override { attach(line); }
    void visit(forms::Image& image) override { attach(image); }
    void visit(forms::Button& button) override { attach(button); }
    void visit(forms::CheckBox& box) override { attach(box); }
    void visit(forms::OptionButton& option) override { attach(option); }
    void visit(forms::TextBox& box) override { attach(box); }
    void visit(forms::ListBox& list) override { attach(list); }
    void visit(forms::DriveList& list) override { attach(list); }
    void visit(forms::FolderList& list) override { attach(list); }
    void visit(forms::TabStrip& tabs) override { attach(tabs); }
    void visit(forms::StatusBar& bar) override { attach(bar); }
    void visit(forms::Frame& frame) override {
        attach(frame);
        PeerBuilder(peerOf(&frame)->window(), style_, peers_).fill(frame);
    }
    void visit(forms::PictureBox& panel) override {
        attach(panel, [&panel, &style = style_, &peers = peers_] {
            PeerBuilder(peerOf(&panel)->window(), style, peers).fill(panel);
        });
    }
    void visit(forms::MenuItem& item) override {
        attach(item);
        fill(item);
    }

  private:
    template <typename Kind, typename... More>
    void attach(Kind& control, More&&... more) {
        const Site site{parent_, style_, idOf(control), startsGroup(control)};
        control.attach(makePeer(control, site, std::forward<More>(more)...));
        if (auto* peer = peerOf(&control)) {
            peers_.push_back(peer);
            if (takesFocus(control) && needsAccessibleName(control))
                peer->setAccessibleName(control.accessibleName());
        }
        control.peer()->update();
    }

    HWND parent_;
    const Style& style_;
    std::vector<ControlPeer*>& peers_;
};

}  // namespace

void buildPeers(forms::Form& form, HWND window, const Style& style,
                std::vector<ControlPeer*>& peers) {
    PeerBuilder(window, style, peers).fill(form);
}

}  // namespace win32
