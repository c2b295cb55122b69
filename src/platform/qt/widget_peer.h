#pragma once

#include <QPointer>
#include <QWidget>

#include "forms/control.h"

namespace qt {

/// A tooltip that shows the text as it stands, with all its blanks, and wraps where it is long.
QString wrappingToolTip(const std::string& text);

/// True while a modal window keeps the user from the widget's. Qt holds back keys and clicks by
/// itself, but not what assistive technology does.
bool isBehindModal(const QWidget& widget);

/// A peer that shows its control as one widget. The widget belongs to the form's window, which
/// outlives the peer: a handler may end the form while the widget is still delivering the very
/// event that started it.
class WidgetPeer : public QObject, public forms::Peer {
  public:
    WidgetPeer(forms::Control& control, QWidget& widget);
    void update() final;
    [[nodiscard]] QWidget& widget() const { return widget_; }

  protected:
    /// Puts the widget into its place.
    virtual void updateGeometry();
    /// Draws what the kind of control has beyond place, name, enabled and visible.
    virtual void draw() {}

    /// Hands a user's action to the model, then shows what the model holds: it may have refused.
    template <typename Action>
    void act(const Action& action) {
        const QPointer<QObject> alive(this);
        if (!isBehindModal(widget_)) action();
        if (alive) update();
    }

  private:
    forms::Control& control_;
    QWidget& widget_;
};

/// A peer that knows its control and its widget by their kinds.
template <typename Kind, typename Widget>
class PeerOf : public WidgetPeer {
  public:
    PeerOf(Kind& control, Widget* widget)
        : WidgetPeer(control, *widget), control_(control), widget_(*widget) {}

  protected:
    Kind& control_;
    Widget& widget_;
};

}  // namespace qt
