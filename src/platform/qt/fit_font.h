#pragma once

#include <QFont>

#include "forms/form.h"

namespace qt {

/// The largest font from 10 to 7 points in which every caption of the form fits: the desktop's
/// own, or a narrower one where that can be larger.
QFont fittingFont(forms::Form& form);

}  // namespace qt
