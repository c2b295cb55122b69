#pragma once

#include <QProxyStyle>

namespace qt {

/// The user's style with marks, icons and bars that grow with the forms. Styles scale them by the
/// screen's resolution alone. No button of a box has an icon, as none of a form has.
class ScaledStyle : public QProxyStyle {
  public:
    explicit ScaledStyle(double enlargement) : enlargement_(enlargement) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;

  private:
    double enlargement_;
};

}  // namespace qt
