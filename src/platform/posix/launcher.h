#pragma once

#include <string>

#include "platform/posix/command_line.h"
#include "platform/posix/invocation.h"
#include "platform/posix/windows_disk.h"

namespace platform {

/// Works out how a command of the Windows world is started on this host.
class Launcher {
  public:
    explicit Launcher(WindowsDisk& disk) : disk_(disk) {}

    /// Finds the program, which is a Windows path or a name on the search path, and gives it
    /// arguments that it understands: programs of the host are executed, those of Windows go
    /// through Wine, and notepad is the desktop's text editor. Throws RuntimeError that tells which
    /// program is meant and what is missing.
    Invocation prepare(const CommandLine& command);

  private:
    Invocation editorFor(const std::string& file);
    Invocation viaWine(const std::string& name, const std::string& program);
    std::string find(const std::string& name);

    WindowsDisk& disk_;
};

}  // namespace platform
