#pragma once

#include <QFont>
#include <QMainWindow>
#include <QRect>

#include "forms/control.h"

namespace qt {

/// Converts between twips of the forms and logical pixels of the screen. A length on the screen
/// follows the screen's resolution; one inside a window also grows with the user's font, as far as
/// the screen has room.
class Scale {
  public:
    /// Takes the scale of the present screen for a user with this font.
    explicit Scale(const QFont& usersFont);

    /// Lengths on the screen: positions of windows.
    [[nodiscard]] int screenPixels(int twips) const;
    [[nodiscard]] int screenTwips(int pixels) const;

    /// Lengths inside a window, and sizes of windows.
    [[nodiscard]] int pixels(int twips) const;
    [[nodiscard]] int twips(int pixels) const;

    /// Returns the place of a control in its container. Rounds each edge separately, so that
    /// controls that touch in twips also touch on the screen.
    [[nodiscard]] QRect placeOf(const forms::Control& control) const;

    /// Returns the ratio of a length inside a window to the same length on the screen, at least 1.
    [[nodiscard]] double enlargement() const { return window_ / screen_; }

  private:
    // Pixels per twip.
    double screen_;
    double window_;
};

/// The native window of a form. It keeps its scale.
class ScaledWindow : public QMainWindow {
  public:
    ScaledWindow(const Scale& scale, Qt::WindowFlags flags)
        : QMainWindow(nullptr, flags), scale(scale) {}
    const Scale scale;
};

/// Returns the scale of the form's window that contains the widget.
const Scale& scaleOf(const QWidget& widget);

/// Returns the height of the font in points.
double pointsOf(const QFont& font);

}  // namespace qt
