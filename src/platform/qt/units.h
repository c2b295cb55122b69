#pragma once

#include <QRect>

#include "forms/control.h"

/// Twips of the forms and logical pixels of the screen.
namespace qt {

/// Takes the scale from the screen and the user's font as they are now. A twip on the screen
/// follows the screen's resolution; one inside a window also grows with the user's font, as far as
/// the screen has room. Call before the first window is made: windows do not change their scale.
void takeScale();

/// Length on the screen, for the place of a window.
int screenPixels(int twips);
int screenTwips(int pixels);

/// Length inside a window, and the size of one.
int pixels(int twips);
int twips(int pixels);

/// Ratio of a length inside a window to the same on the screen, at least 1.
double enlargement();

/// Where a control lies in its container. Each edge is rounded by itself, so that controls which
/// meet in twips meet on the screen.
QRect placeOf(const forms::Control& control);

}  // namespace qt
