#pragma once

#include <QPointer>
#include <QWidget>

#include "forms/control.h"
#include "platform/linux/qt/units.h"

namespace qt {

/// Returns a tooltip that shows the text unchanged, with all its blanks, and wraps long lines.
QString wrappingToolTip(const std::string& text);

/// True while a modal window blocks the widget's. Qt itself blocks keys and clicks, but not the
/// actions of assistive technology.
bool isBlockedByModal(const QWidget& widget);

/// A peer that shows its control as one widget. The widget belongs to the form's window and
/// outlives the peer: a handler may end the form while the widget is still delivering the event
/// that called it.
class ControlPeer : public QObject, public forms::Peer {
  public:
    ControlPeer(forms::Control& control, QWidget& widget);
    void update() final;
    [[nodiscard]] QWidget& widget() const { return widget_; }

  protected:
    [[nodiscard]] const Scale& scale() const { return scaleOf(widget_); }
    /// Moves the widget to its place.
    virtual void updateGeometry();
    /// Shows what the kind of control has beyond its place, name, Enabled and Visible.
    virtual void draw() {}

    /// Passes a user's action to the model, then shows the model's state: it may have refused.
    template <typename Action>
    void act(const Action& action) {
        const QPointer<QObject> alive(this);
        if (!isBlockedByModal(widget_)) action();
        if (alive) update();
    }

  private:
    forms::Control& control_;
    QWidget& widget_;
};

/// A peer with the types of its control and widget.
template <typename Kind, typename Widget>
class PeerOf : public ControlPeer {
  public:
    PeerOf(Kind& control, Widget* widget)
        : ControlPeer(control, *widget), control_(control), widget_(*widget) {}

  protected:
    Kind& control_;
    Widget& widget_;
};

}  // namespace qt
