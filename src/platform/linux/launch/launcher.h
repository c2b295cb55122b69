#pragma once

#include <string>

#include "platform/linux/disk/windows_disk.h"
#include "platform/linux/launch/command_line.h"
#include "platform/linux/launch/invocation.h"

namespace platform {

/// Works out how to start a command for Windows on this host.
class Launcher {
  public:
    explicit Launcher(WindowsDisk& disk) : disk_(disk) {}

    /// Finds the program, given as a Windows path or as a name on the search path, and translates
    /// its arguments. Host programs are executed, Windows programs run in Wine, and notepad is the
    /// desktop's text editor. Throws RuntimeError that names the program and what is missing.
    Invocation prepare(const CommandLine& command);

  private:
    Invocation editorFor(const std::string& file);
    Invocation viaWine(const std::string& name, const HostPath& program);
    HostPath find(const std::string& name);

    WindowsDisk& disk_;
};

}  // namespace platform
