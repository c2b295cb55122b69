#include <QLineEdit>
#include <QPlainTextEdit>

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

/// Lines end in CRLF in the model and in LF in the widget.
class LinesPeer : public PeerOf<forms::TextBox, QPlainTextEdit> {
  public:
    LinesPeer(forms::TextBox& box, QWidget& parent) : PeerOf(box, new QPlainTextEdit(&parent)) {
        widget_.setReadOnly(box.readOnly);
        widget_.setTabChangesFocus(true);
        if (box.readOnly) widget_.viewport()->setBackgroundRole(QPalette::Window);
        connect(&widget_, &QPlainTextEdit::textChanged, this, [this] {
            if (text() != control_.Text()) act([&] { control_.type(text()); });
        });
    }

  protected:
    void draw() override {
        if (control_.Visible && text() != control_.Text())
            widget_.setPlainText(QString::fromStdString(control_.Text));
    }

  private:
    [[nodiscard]] std::string text() const {
        return widget_.toPlainText().replace("\n", "\r\n").toStdString();
    }
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::TextBox& box, QWidget& parent) {
    if (box.multiLine) return std::make_unique<LinesPeer>(box, parent);
    return std::make_unique<LineEditPeer>(box, parent);
}

}  // namespace qt
