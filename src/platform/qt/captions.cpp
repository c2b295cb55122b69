#include "platform/qt/captions.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

#include "platform/qt/caption_label.h"

namespace qt {

namespace {

QSize textSize(const QWidget& widget, const QString& caption) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, caption);
}

bool fitsInside(const QSize& inner, const QSize& outer) {
    return inner.width() <= outer.width() && inner.height() <= outer.height();
}

/// The part of a button that its style leaves for the caption.
QSize room(const QAbstractButton& button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(&button);
    return button.style()->subElementRect(element, &option, &button).size();
}

bool fits(const QAbstractButton& button) {
    const QSize text = textSize(button, button.text());
    if (qobject_cast<const QCheckBox*>(&button))
        return fitsInside(text, room(button, QStyle::SE_CheckBoxContents));
    if (qobject_cast<const QRadioButton*>(&button))
        return fitsInside(text, room(button, QStyle::SE_RadioButtonContents));
    if (!qobject_cast<const QPushButton*>(&button)) return true;
    const int sides = 4;  // a caption that touches the button's edge is hard to read
    return fitsInside(text + QSize(2 * sides, 0), room(button, QStyle::SE_PushButtonContents));
}

bool fits(const QGroupBox& box) {
    QStyleOptionGroupBox option;
    option.initFrom(&box);
    option.text = box.title();
    option.textAlignment = box.alignment();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    const QRect title =
        box.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &box);
    return textSize(box, box.title()).width() <= title.width() && box.rect().contains(title);
}

bool fits(const QLineEdit& line) {
    QStyleOptionFrame option;
    option.initFrom(&line);
    option.lineWidth = line.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &line);
    const QRect text = line.style()->subElementRect(QStyle::SE_LineEditContents, &option, &line);
    return line.fontMetrics().height() <= text.height();
}

bool fits(const QTabWidget& tabs) {
    return tabs.tabBar()->sizeHint().width() <= tabs.width();
}

}  // namespace

bool captionFits(const QWidget& widget) {
    if (const auto* label = dynamic_cast<const CaptionLabel*>(&widget)) return label->fits();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return fits(*button);
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return fits(*box);
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return fits(*line);
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) return fits(*tabs);
    return true;
}

void fitFont(QWidget& window) {
    const int largest = 20;  // in half points
    const int smallest = 14;
    const auto widgets = window.findChildren<QWidget*>();
    QFont font = QApplication::font();
    for (int halves = largest; halves >= smallest; --halves) {
        font.setPointSizeF(halves / 2.0);
        for (const QString& family : {QApplication::font().family(), QString("Liberation Sans")}) {
            font.setFamily(family);
            window.setFont(font);
            if (std::all_of(widgets.begin(), widgets.end(),
                            [](const QWidget* widget) { return captionFits(*widget); }))
                return;
        }
    }
}

}  // namespace qt
