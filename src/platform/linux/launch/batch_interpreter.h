#pragma once

#include <map>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/linux/disk/windows_disk.h"
#include "platform/linux/launch/batch_script.h"
#include "platform/linux/launch/launcher.h"

namespace platform {

/// Runs batch scripts: drive lines, "cd", commands, "pause" and "exit". Any other line ends the
/// script. It never calls a shell.
class BatchInterpreter {
  public:
    /// Whether `out` is a terminal window, whose title then shows the running command.
    enum class Titles { No, Yes };

    /// Writes echoed lines and errors to `out`; "pause" reads a line from `in`.
    BatchInterpreter(WindowsDisk& disk, std::istream& in, std::ostream& out,
                     Titles titles = Titles::No)
        : disk_(disk), launcher_(disk), in_(in), out_(out), titles_(titles) {}

    /// Runs the only script of this interpreter, in the current folder of the process. Returns
    /// false if the user must be given time to read the output: a line could not be executed, or
    /// the last program failed, and no "pause" followed.
    bool run(std::string_view script);

  private:
    enum class Next { Continue, Stop };
    Next execute(const BatchLine& line);
    void changeDrive(const std::string& drive);
    void changeFolder(const std::string& path);
    Next runCommand(const std::string& text);
    std::string inputFile(const CommandLine& command);
    void echo(const std::string& line);
    void showTitle(const CommandLine& command);
    void report(const std::string& message);
    std::string currentDrive();

    WindowsDisk& disk_;
    Launcher launcher_;
    std::istream& in_;
    std::ostream& out_;
    Titles titles_;
    std::map<std::string, HostPath> folders_;  ///< current folders of other drives
    bool failed_ = false;
    std::string lastFailure_;  ///< how the last program failed; empty if it did not
};

}  // namespace platform
