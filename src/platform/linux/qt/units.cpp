#include "platform/linux/qt/units.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace qt {

namespace {

constexpr double twipsPerInch = 1440;
constexpr double usualPoints = 10;    // the size of text for which the forms are laid out
constexpr double tallestForm = 7600;  // in twips, with menu bar and title bar

}  // namespace

double pointsOf(const QFont& font) {
    return font.pixelSize() > 0 ? QFontInfo(font).pointSizeF() : font.pointSizeF();
}

Scale::Scale(const QFont& usersFont) {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    screen_ = screen.logicalDotsPerInch() / twipsPerInch;
    const double wanted = pointsOf(usersFont) / usualPoints * screen_;
    const double room = screen.availableSize().height() / tallestForm;
    window_ = std::max(screen_, std::min(wanted, room));
}

int Scale::screenPixels(int twips) const {
    return qRound(twips * screen_);
}

int Scale::screenTwips(int pixels) const {
    return qRound(pixels / screen_);
}

int Scale::pixels(int twips) const {
    return qRound(twips * window_);
}

int Scale::twips(int pixels) const {
    return qRound(pixels / window_);
}

QRect Scale::placeOf(const forms::Control& control) const {
    const QPoint topLeft(pixels(control.Left), pixels(control.Top));
    const QPoint bottomRight(pixels(control.Left + control.Width),
                             pixels(control.Top + control.Height));
    return {topLeft, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y())};
}

const Scale& scaleOf(const QWidget& widget) {
    return dynamic_cast<const ScaledWindow&>(*widget.window()).scale;
}

}  // namespace qt
