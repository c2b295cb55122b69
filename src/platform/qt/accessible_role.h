#pragma once

#include <QAccessible>

namespace qt {

/// Gives a new widget a role for assistive technology that its class does not have. It must have no
/// name or other text yet, with which it would be told of in the role of its class.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

template <typename Widget>
Widget* withRole(Widget* widget, QAccessible::Role role) {
    setAccessibleRole(*widget, role);
    return widget;
}

}  // namespace qt
