#pragma once

#include <string>

namespace platform {

/// Starts a command as Runtime::rtcShell describes, in a normal or maximised window. Looks for a
/// program without a path in the system folder and on the search path, never in the current folder.
/// A script without arguments is one of our own: checks it first, and rewrites it in the code page
/// in which the interpreter will read it. Throws Refusal if the command would do something else
/// than it says, and RuntimeError if it cannot be started or would run in another folder.
void startCommand(const std::string& command, bool maximised);

}  // namespace platform
