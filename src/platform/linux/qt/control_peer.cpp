#include "platform/linux/qt/control_peer.h"

#include <QApplication>

namespace qt {

QString wrappingToolTip(const std::string& text) {
    if (text.empty()) return {};
    return "<p style='white-space:pre-wrap'>" + QString::fromStdString(text).toHtmlEscaped() +
           "</p>";
}

bool isBlockedByModal(const QWidget& widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal && modal != widget.window();
}

ControlPeer::ControlPeer(forms::Control& control, QWidget& widget)
    : control_(control), widget_(widget) {
    widget.setObjectName(QString::fromStdString(control.fullName()));
    widget.setToolTip(wrappingToolTip(control.tooltip));
    widget.setAccessibleDescription(QString::fromStdString(control.tooltip).trimmed());

    // Plain text that a form defines in a font of Windows has the program's font here.
    constexpr double smallestTitle = 12;
    if (control.font.points < smallestTitle) return;
    QFont font;  // inherits all that is not set here from the form's
    if (!control.font.family.empty()) font.setFamily(QString::fromStdString(control.font.family));
    font.setPointSizeF(control.font.points * scale().enlargement());
    if (control.font.italic) font.setItalic(true);
    widget.setFont(font);
}

void ControlPeer::update() {
    updateGeometry();
    widget_.setEnabled(control_.Enabled);
    const QString name = QString::fromStdString(control_.accessibleName());
    if (widget_.accessibleName() != name) widget_.setAccessibleName(name);
    draw();
    widget_.setVisible(control_.inSight());
}

void ControlPeer::updateGeometry() {
    widget_.setGeometry(scale().placeOf(control_));
}

}  // namespace qt
