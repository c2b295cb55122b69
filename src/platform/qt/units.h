#pragma once

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include "forms/control.h"

/// Twips of the forms and logical pixels of the screen. Where Qt scales pixels by itself a pixel
/// is always 15 twips; otherwise it is as many as the screen's resolution says.
namespace qt {

inline double pixelsPerTwip() {
    return QGuiApplication::primaryScreen()->logicalDotsPerInch() / 1440;
}

inline int pixels(int twips) {
    return qRound(twips * pixelsPerTwip());
}

inline int twips(int pixels) {
    return qRound(pixels / pixelsPerTwip());
}

/// Where a control lies in its container. Each edge is rounded by itself, so that controls which
/// meet in twips meet on the screen.
inline QRect placeOf(const forms::Control& control) {
    const QPoint first(pixels(control.Left), pixels(control.Top));
    const QPoint behind(pixels(control.Left + control.Width), pixels(control.Top + control.Height));
    return {first, QSize(behind.x() - first.x(), behind.y() - first.y())};
}

}  // namespace qt
