#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "guide.h"

namespace tour {

/// Works the real program on the display, in the demo folder; pictures go to the third.
using Work = std::function<void(const Display&, const Demo&, const std::filesystem::path&)>;

/// The whole of a main function with the arguments PROJECT_FOLDER BUILD_FOLDER. The program is the
/// one of the build folder; that of Windows runs under Wine. `name` names the outing and its folder
/// in the project's build folder. A failure is told, with a picture of the display, and gives 1.
int goOut(const std::string& name, int argumentCount, char** arguments, const Work& work);

}  // namespace tour
