#pragma once

#include "core/module1.h"

namespace core {

/// Fills the state from the settings file in the program's folder, from the older format if there
/// is only that, or with the defaults. Failures and what the user should know go to message boxes;
/// after a failure no field is set.
void LoadSettings(Program& program);

/// Writes the settings file from the state. A failure is told to the user, never to the caller,
/// save for a folder that cannot be written, which the user knows of since the start. A file that
/// the load could not read is kept.
void SaveSettings(Program& program);

}  // namespace core
