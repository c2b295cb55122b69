#include <QLineEdit>
#include <QPlainTextEdit>
#include <optional>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class LineEditPeer : public PeerOf<forms::TextBox, QLineEdit> {
  public:
    LineEditPeer(forms::TextBox& box, QWidget& parent) : PeerOf(box, new QLineEdit(&parent)) {
        widget_.setReadOnly(box.readOnly);
        connect(&widget_, &QLineEdit::textChanged, this, [this](const QString& text) {
            const std::string typed = text.toStdString();
            if (typed != control_.Text()) act([&] { control_.type(typed); });
        });
    }

  protected:
    void draw() override {
        if (!control_.Visible) return;
        const QString text = QString::fromStdString(control_.Text);
        // Setting the text again would lose the cursor and the undo history.
        if (widget_.text() != text) widget_.setText(text);
    }
};

/// Shows lines, which the user cannot change. The widget does not return every character as it was
/// set, so its text is never compared with the model's.
class LinesPeer : public PeerOf<forms::TextBox, QPlainTextEdit> {
  public:
    LinesPeer(forms::TextBox& box, QWidget& parent) : PeerOf(box, new QPlainTextEdit(&parent)) {
        widget_.setReadOnly(true);
        widget_.setTabChangesFocus(true);
        widget_.viewport()->setBackgroundRole(QPalette::Window);
        // Assistive technology can change even a text that is read-only.
        connect(&widget_, &QPlainTextEdit::textChanged, this, [this] {
            shown_.reset();
            update();
        });
    }

  protected:
    void draw() override {
        if (!control_.Visible || shown_ == control_.Text()) return;
        shown_ = control_.Text();
        const QSignalBlocker own(widget_);
        widget_.setPlainText(QString::fromStdString(*shown_));
    }

  private:
    std::optional<std::string> shown_;
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::TextBox& box, QWidget& parent) {
    if (box.multiLine) return std::make_unique<LinesPeer>(box, parent);
    return std::make_unique<LineEditPeer>(box, parent);
}

}  // namespace qt
