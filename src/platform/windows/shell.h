#pragma once

#include <string>

namespace platform {

/// Starts a command as Runtime::rtcShell describes, in a normal or maximised window. Looks for a
/// program without a path in the system folder and on the search path, never in the current folder.
/// A script without arguments is one of our own, in UTF-8: checks it first, and rewrites it in the
/// interpreter's code page if that has all its characters. Throws RuntimeError if the command
/// cannot be started, would do something else than it says, or would run in another folder.
void startCommand(const std::string& command, bool maximised);

}  // namespace platform
