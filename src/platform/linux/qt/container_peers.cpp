#include <QGroupBox>
#include <QMouseEvent>

#include "forms/form.h"
#include "platform/linux/qt/accessibility.h"
#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class FramePeer : public PeerOf<forms::Frame, QWidget> {
  public:
    FramePeer(forms::Frame& frame, QWidget& parent)
        : PeerOf(frame, frame.Caption().empty() ? new QWidget(&parent) : new QGroupBox(&parent)) {
        widget_.installEventFilter(this);
        if (frame.form().style.background == forms::FormStyle::noColour) return;
        widget_.setBackgroundRole(QPalette::Base);
        widget_.setAutoFillBackground(true);
    }

  protected:
    void draw() override {
        if (auto* box = qobject_cast<QGroupBox*>(&widget_))
            box->setTitle(QString::fromStdString(control_.Caption));
    }

    /// Ignores presses that bubbled up from a child.
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonPress) return false;
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::LeftButton && !widget_.childAt(press->pos())) control_.click();
        return false;
    }
};

/// A panel whose widgets are created when it first becomes visible, which may never happen.
class PanelPeer : public PeerOf<forms::PictureBox, QWidget> {
  public:
    PanelPeer(forms::PictureBox& panel, QWidget& parent, std::function<void(QWidget&)> fill)
        // A screen reader reads the name of a page when it enters it, and so announces the selected
        // tab.
        : PeerOf(panel, makeWithRole<QWidget>(QAccessible::PropertyPage, parent)),
          fill_(std::move(fill)) {}

  protected:
    void draw() override {
        if (!fill_ || !control_.inSight()) return;
        std::exchange(fill_, nullptr)(widget_);
    }

  private:
    std::function<void(QWidget& panel)> fill_;
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::Frame& frame, QWidget& parent) {
    return std::make_unique<FramePeer>(frame, parent);
}

std::unique_ptr<ControlPeer> makePeer(forms::PictureBox& panel, QWidget& parent,
                                      std::function<void(QWidget& panel)> fill) {
    return std::make_unique<PanelPeer>(panel, parent, std::move(fill));
}

}  // namespace qt
