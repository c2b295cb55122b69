#pragma once

#include "core/module1.h"

namespace core {

/// Loads the state from the settings file in the program's folder, or else from a file of the older
/// format, or else from the defaults. Failures and notices are shown in message boxes; after a
/// failure no field is set.
void LoadSettings(Program& program);

/// Writes the state to the settings file. A failure is shown to the user and not reported to the
/// caller; a read-only folder is not shown again, since the start has done so. Settings files that
/// LoadSettings did not read are kept, and the user is told where.
void SaveSettings(Program& program);

}  // namespace core
