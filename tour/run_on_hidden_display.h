#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "guide.h"

namespace tour {

/// Operates the real program on the display, in the demo; screenshots go to the folder.
using Work = std::function<void(const Display&, const Demo&, const std::filesystem::path&)>;

/// Runs `work` on a new hidden display with a new demo. The arguments are those of main:
/// PROJECT_FOLDER BUILD_FOLDER. The program is the one in the build folder; a Windows program runs
/// under Wine. `name` is used in messages and for the folder in the project's build folder. Returns
/// the exit code; a failure is reported, with a screenshot, and gives 1.
int runOnHiddenDisplay(const std::string& name, int argumentCount, char** arguments,
                       const Work& work);

}  // namespace tour
