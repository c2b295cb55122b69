#pragma once

#include <string>

namespace platform {

/// The host's path of a program found on the search path; empty if there is none. Folders that
/// count from the current one are left out: the folder of a game must not bring programs along.
std::string onSearchPath(const std::string& name);

}  // namespace platform
