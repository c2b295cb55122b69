#pragma once

#include <QRect>

#include "forms/control.h"

/// Converts between twips of the forms and logical pixels of the screen.
namespace qt {

/// Sets the scale by the present screen and user's font. A length on the screen follows the
/// screen's resolution; one inside a window also grows with the user's font, as far as the screen
/// has room. Call this before creating the first window: windows do not change their scale.
void takeScale();

/// Lengths on the screen: positions of windows.
int screenPixels(int twips);
int screenTwips(int pixels);

/// Lengths inside a window, and sizes of windows.
int pixels(int twips);
int twips(int pixels);

/// Returns the height of the user's font in points.
double userPoints();

/// Returns the ratio of a length inside a window to the same length on the screen, at least 1.
double enlargement();

/// Returns the place of a control in its container. Rounds each edge separately, so that controls
/// that touch in twips also touch on the screen.
QRect placeOf(const forms::Control& control);

}  // namespace qt
