#include "platform/linux/qt/accessibility.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace qt {

namespace {

constexpr const char* roleProperty = "accessibleRole";

/// Keeps a line without a name: Qt would name it after the frame around it.
class Interface : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return role() == QAccessible::Separator ? QString() : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget) return nullptr;
    const QVariant role = widget->property(roleProperty);
    if (!role.isValid()) return nullptr;
    return new Interface(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    QAccessible::installFactory(makeInterface);  // has an effect only once
    widget.setProperty(roleProperty, static_cast<int>(role));
}

}  // namespace qt
