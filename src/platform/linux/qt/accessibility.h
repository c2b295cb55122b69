#pragma once

#include <QAbstractItemView>
#include <QAccessible>
#include <QWidget>
#include <memory>

class QTabBar;

namespace qt {

/// Gives a widget another accessible role than that of its class. The widget has no parent yet:
/// getting a parent may announce it, in the role that it has then.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

/// Creates a widget with another accessible role than that of its class.
template <typename Widget>
Widget* makeWithRole(QAccessible::Role role, QWidget& parent) {
    auto widget = std::make_unique<Widget>();
    setAccessibleRole(*widget, role);
    widget->setParent(&parent);
    return widget.release();
}

/// Creates a tab bar for a tab widget, on which assistive technology presses a tab as a click does.
/// Qt's own ignores a press on the selected tab.
std::unique_ptr<QTabBar> makeTabBar();

/// A list that announces its current entry only while it has the focus.
template <typename List>
class QuietList : public List {
  public:
    using List::List;

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override {
        if (this->hasFocus()) {
            List::currentChanged(current, previous);
        } else {
            // Skips the list's own step, which makes the announcement.
            // NOLINTNEXTLINE(bugprone-parent-virtual-call)
            QAbstractItemView::currentChanged(current, previous);
        }
    }
};

}  // namespace qt
