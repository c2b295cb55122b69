#pragma once

#include <string>

namespace platform {

/// Returns the host path of a program on the search path, or an empty string. Skips relative
/// folders: a game's folder must not provide programs.
std::string onSearchPath(const std::string& name);

/// Removes relative folders from the XDG base directory variables, whose standard says to
/// ignore them; Qt would search the current folder. Call it before anything else in main.
void ignoreRelativeBaseFolders();

}  // namespace platform
