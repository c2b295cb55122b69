#include "platform/linux/qt/scaled_style.h"

namespace qt {

int ScaledStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    const int size = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing:
        case PM_SmallIconSize:
        case PM_ListViewIconSize:
        case PM_ButtonIconSize:
        case PM_MessageBoxIconSize:
        case PM_ScrollBarExtent:
        case PM_TabBarScrollButtonWidth:
            return qRound(size * enlargement_);
        default:
            return size;
    }
}

QSize ScaledStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    // Qt's own style draws a column for marks as wide as a line is high, but asks for a fixed one.
    if (type == CT_MenuItem) size.rwidth() += size.height() / 2;
    // The buttons of boxes: the usual width is also a fixed one.
    if (type == CT_PushButton) size = size.expandedTo({3 * size.height(), 0});
    return size;
}

int ScaledStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace qt
