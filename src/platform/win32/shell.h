#pragma once

#include <string>

namespace platform {

/// Starts a command, as Runtime::rtcShell tells, with its window of normal size or maximised.
/// Throws RuntimeError if it cannot be started.
void startCommand(const std::string& command, bool maximised);

}  // namespace platform
