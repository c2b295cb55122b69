#pragma once

#include <QFont>
#include <memory>
#include <vector>

#include "forms/form.h"
#include "platform/linux/qt/units.h"

namespace qt {

/// Returns the largest font from 10 to 7 points in which every caption of the forms fits: the
/// user's own if it fits as it is, or at 10 points if it is larger; else Liberation Sans, which is
/// narrower. The points grow with the scale of windows.
QFont fittingFont(const std::vector<std::unique_ptr<forms::Form>>& forms, const QFont& usersFont,
                  const Scale& scale);

}  // namespace qt
