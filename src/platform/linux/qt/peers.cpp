#include "platform/linux/qt/peers.h"

#include <QLabel>
#include <QMainWindow>
#include <utility>

#include "forms/form.h"
#include "platform/linux/qt/control_peer.h"

namespace qt {

namespace {

/// Creates the peers of the controls in a container and in the containers inside it.
class PeerBuilder : public forms::ControlVisitor {
  public:
    PeerBuilder(QMainWindow& window, QWidget& parent, const Filled& filled)
        : window_(window), parent_(parent), filled_(filled) {}

    void fill(const forms::Container& container) {
        for (forms::Control* control : container.children())
            control->accept(*this);
    }

    void visit(forms::Label& label) override { label_ = qobject_cast<QLabel*>(&show(label)); }
    void visit(forms::Line& line) override { show(line); }
    void visit(forms::Image& image) override { show(image); }
    void visit(forms::Button& button) override { show(button); }
    void visit(forms::CheckBox& box) override { show(box); }
    void visit(forms::OptionButton& option) override { show(option); }
    void visit(forms::TextBox& box) override { show(box); }
    void visit(forms::ListBox& list) override { show(list); }
    void visit(forms::DriveList& list) override { show(list); }
    void visit(forms::FolderList& list) override { show(list); }
    void visit(forms::TabStrip& tabs) override { show(tabs); }
    void visit(forms::StatusBar& bar) override { attach(bar, makePeer(bar, window_)); }
    void visit(forms::Frame& frame) override {
        QWidget& inside = show(frame);
        PeerBuilder(window_, inside, filled_).fill(frame);
    }
    void visit(forms::PictureBox& panel) override {
        show(panel, [&panel, &window = window_, filled = filled_](QWidget& inside) {
            PeerBuilder(window, inside, filled).fill(panel);
            filled(inside);
        });
    }
    void visit(forms::MenuItem& item) override {
        attach(item, makePeer(item, window_));
        fill(item);
    }

  private:
    static void attach(forms::Control& control, std::unique_ptr<forms::Peer> peer) {
        control.attach(std::move(peer));
        control.peer()->update();
    }

    /// Makes the label before a field its buddy, unless the field has a caption of its own.
    template <typename Kind, typename... More>
    QWidget& show(Kind& control, More&&... more) {
        auto peer = makePeer(control, parent_, std::forward<More>(more)...);
        QWidget& widget = peer->widget();
        attach(control, std::move(peer));
        QLabel* before = std::exchange(label_, nullptr);
        if (before && control.Caption().empty() && widget.focusPolicy() != Qt::NoFocus)
            before->setBuddy(&widget);
        return widget;
    }

    QMainWindow& window_;
    QWidget& parent_;
    const Filled& filled_;
    QLabel* label_ = nullptr;  ///< if it came last
};

}  // namespace

forms::Control* controlOf(forms::Form& form, const QWidget* widget) {
    for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        if (widget->objectName().isEmpty()) continue;
        if (auto* control = form.find(widget->objectName().toStdString())) return control;
    }
    return nullptr;
}

void buildPeers(forms::Form& form, QMainWindow& window, const Filled& filled) {
    PeerBuilder(window, *window.centralWidget(), filled).fill(form);
    filled(*window.centralWidget());
}

}  // namespace qt
