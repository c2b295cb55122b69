#include "platform/linux/qt/peers.h"

#include <QLabel>
#include <QMainWindow>

#include "forms/form.h"
#include "platform/linux/qt/control_peer.h"

namespace qt {

namespace {

/// Makes a label the buddy of the field after it, if that has no caption of its own.
void setBuddy(const forms::Control& before, const forms::Control& field) {
    const auto* fieldPeer = dynamic_cast<ControlPeer*>(field.peer());
    const auto* labelPeer = dynamic_cast<ControlPeer*>(before.peer());
    auto* label = labelPeer ? qobject_cast<QLabel*>(&labelPeer->widget()) : nullptr;
    if (label && fieldPeer && field.Caption().empty() &&
        fieldPeer->widget().focusPolicy() != Qt::NoFocus)
        label->setBuddy(&fieldPeer->widget());
}

/// Creates the peers of the controls in a container and in the containers inside it.
class PeerBuilder : public forms::ControlVisitor {
  public:
    PeerBuilder(QMainWindow& window, QWidget& parent, const Filled& filled)
        : window_(window), parent_(parent), filled_(filled) {}

    void fill(const forms::Container& container) {
        const forms::Control* before = nullptr;
        for (forms::Control* control : container.children()) {
            control->accept(*this);
            if (before) setBuddy(*before, *control);
            before = control;
        }
    }

    void visit(forms::Label& label) override { attach(label, parent_); }
    void visit(forms::Line& line) override { attach(line, parent_); }
    void visit(forms::Image& image) override { attach(image, parent_); }
    void visit(forms::Button& button) override { attach(button, parent_); }
    void visit(forms::CheckBox& box) override { attach(box, parent_); }
    void visit(forms::OptionButton& option) override { attach(option, parent_); }
    void visit(forms::TextBox& box) override { attach(box, parent_); }
    void visit(forms::ListBox& list) override { attach(list, parent_); }
    void visit(forms::DriveList& list) override { attach(list, parent_); }
    void visit(forms::FolderList& list) override { attach(list, parent_); }
    void visit(forms::TabStrip& tabs) override { attach(tabs, parent_); }
    void visit(forms::StatusBar& bar) override { attach(bar, window_); }
    void visit(forms::Frame& frame) override {
        attach(frame, parent_);
        QWidget& inside = dynamic_cast<ControlPeer&>(*frame.peer()).widget();
        PeerBuilder(window_, inside, filled_).fill(frame);
    }
    void visit(forms::PictureBox& panel) override {
        attach(panel, parent_, [&panel, &window = window_, filled = filled_](QWidget& inside) {
            PeerBuilder(window, inside, filled).fill(panel);
            filled(inside);
        });
    }
    void visit(forms::MenuItem& item) override {
        attach(item, window_);
        fill(item);
    }

  private:
    template <typename Kind, typename Parent, typename... More>
    void attach(Kind& control, Parent& parent, More&&... more) {
        control.attach(makePeer(control, parent, std::forward<More>(more)...));
        control.peer()->update();
    }

    QMainWindow& window_;
    QWidget& parent_;
    const Filled& filled_;
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
