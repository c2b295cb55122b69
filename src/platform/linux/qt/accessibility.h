#pragma once

#include <QAccessible>

namespace qt {

/// Gives a new widget another accessible role than that of its class. Call this before setting a
/// name or another text, which would announce the widget in the role of its class.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

template <typename Widget>
Widget* withRole(Widget* widget, QAccessible::Role role) {
    setAccessibleRole(*widget, role);
    return widget;
}

}  // namespace qt
