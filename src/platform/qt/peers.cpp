#include "platform/qt/peers.h"

#include <QLabel>
#include <QMainWindow>

#include "forms/form.h"

namespace qt {

namespace {

class PeerBuilder : public forms::ControlVisitor {
  public:
    explicit PeerBuilder(QMainWindow& window) : window_(window) {}

    void visit(forms::Label& label) override { attach(label, parentOf(label)); }
    void visit(forms::Line& line) override { attach(line, parentOf(line)); }
    void visit(forms::Image& image) override { attach(image, parentOf(image)); }
    void visit(forms::Button& button) override { attach(button, parentOf(button)); }
    void visit(forms::CheckBox& box) override { attach(box, parentOf(box)); }
    void visit(forms::OptionButton& option) override { attach(option, parentOf(option)); }
    void visit(forms::TextBox& box) override { attach(box, parentOf(box)); }
    void visit(forms::Frame& frame) override { attach(frame, parentOf(frame)); }
    void visit(forms::PictureBox& panel) override { attach(panel, parentOf(panel)); }
    void visit(forms::ListBox& list) override { attach(list, parentOf(list)); }
    void visit(forms::DriveList& list) override { attach(list, parentOf(list)); }
    void visit(forms::FolderList& list) override { attach(list, parentOf(list)); }
    void visit(forms::TabStrip& tabs) override { attach(tabs, parentOf(tabs)); }
    void visit(forms::StatusBar& bar) override { attach(bar, window_); }
    void visit(forms::MenuItem& item) override { attach(item, window_); }

  private:
    template <typename Kind, typename Parent>
    void attach(Kind& control, Parent& parent) {
        auto peer = makePeer(control, parent);
        peer->update();
        control.attach(std::move(peer));
    }

    QWidget& parentOf(const forms::Control& control) {
        const QString container = QString::fromStdString(control.parent()->fullName());
        auto* widget = window_.centralWidget()->findChild<QWidget*>(container);
        return widget ? *widget : *window_.centralWidget();
    }

    QMainWindow& window_;
};

/// Ties each label to the field behind it, which has no caption of its own.
void tieLabels(const forms::Container& container, QMainWindow& window) {
    QLabel* label = nullptr;
    for (forms::Control* control : container.children()) {
        auto* widget = window.findChild<QWidget*>(QString::fromStdString(control->fullName()));
        if (label && widget && control->Caption().empty() && widget->focusPolicy() != Qt::NoFocus)
            label->setBuddy(widget);
        label = qobject_cast<QLabel*>(widget);
        if (const auto* inner = dynamic_cast<forms::Container*>(control)) tieLabels(*inner, window);
    }
}

}  // namespace

void buildPeers(forms::Form& form, QMainWindow& window) {
    PeerBuilder builder(window);
    for (forms::Control* control : form.allControls())
        control->accept(builder);
    tieLabels(form, window);
}

}  // namespace qt
