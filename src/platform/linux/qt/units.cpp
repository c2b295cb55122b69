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

/// Pixels per twip.
struct Scale {
    double screen = 96 / twipsPerInch;
    double window = screen;
};
Scale scale;

}  // namespace

double userPoints() {
    const QFont font = QGuiApplication::font();
    return font.pixelSize() > 0 ? QFontInfo(font).pointSizeF() : font.pointSizeF();
}

void takeScale() {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const double dotsPerInch = screen.logicalDotsPerInch();
    const double wanted = userPoints() / usualPoints * dotsPerInch / twipsPerInch;
    const double room = screen.availableSize().height() / tallestForm;
    scale.screen = dotsPerInch / twipsPerInch;
    scale.window = std::max(scale.screen, std::min(wanted, room));
}

int screenPixels(int twips) {
    return qRound(twips * scale.screen);
}

int screenTwips(int pixels) {
    return qRound(pixels / scale.screen);
}

int pixels(int twips) {
    return qRound(twips * scale.window);
}

int twips(int pixels) {
    return qRound(pixels / scale.window);
}

double enlargement() {
    return scale.window / scale.screen;
}

QRect placeOf(const forms::Control& control) {
    const QPoint topLeft(pixels(control.Left), pixels(control.Top));
    const QPoint bottomRight(pixels(control.Left + control.Width),
                             pixels(control.Top + control.Height));
    return {topLeft, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y())};
}

}  // namespace qt
