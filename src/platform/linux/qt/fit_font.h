#pragma once

#include <QFont>

#include "forms/form.h"

namespace qt {

/// Returns the largest font from 10 to 7 points in which every caption of the form fits: the
/// desktop's own if it fits at 10 points, else Liberation Sans, which is narrower. The points grow
/// with the scale of windows.
QFont fittingFont(forms::Form& form);

}  // namespace qt
