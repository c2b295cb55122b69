#pragma once

#include <string>

namespace platform {

/// Starts a command, as Runtime::rtcShell tells, with its window of normal size or maximised.
/// Programs without a path are found in the folders of the system and on the search path, never in
/// the current folder. A script that is started without arguments is one of the program's own, in
/// UTF-8: it is read before the interpreter is given it, and is rewritten in the interpreter's code
/// page if that can hold it. Throws RuntimeError if the command cannot be started, would do
/// something else than it says, or would run in another folder.
void startCommand(const std::string& command, bool maximised);

}  // namespace platform
