#pragma once

#include <QProxyStyle>

namespace qt {

/// The user's style with marks, icons and bars that grow with the forms. Styles scale them by the
/// screen's resolution alone.
class ScaledStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
};

}  // namespace qt
