#pragma once

#include <map>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/posix/batch_script.h"
#include "platform/posix/launcher.h"
#include "platform/posix/windows_disk.h"

namespace platform {

/// Runs batch scripts: drive lines, "cd", commands, "pause" and "exit". No shell is ever involved.
class BatchInterpreter {
  public:
    /// Whether out is a terminal's window, whose title then tells what runs.
    enum class Titles { No, Yes };

    /// Echoes the lines and tells what goes wrong on out; "pause" reads a line from in.
    BatchInterpreter(WindowsDisk& disk, std::istream& in, std::ostream& out,
                     Titles titles = Titles::No)
        : disk_(disk), launcher_(disk), in_(in), out_(out), titles_(titles) {}

    /// Runs the script from the current folder of the process. False if its end should wait for the
    /// reader: a line could not be carried out, or the last program failed, and no "pause" has
    /// followed.
    bool run(std::string_view script);

  private:
    enum class Next { GoOn, Stop };
    Next carryOut(const BatchLine& line);
    void changeDrive(const std::string& drive);
    void changeFolder(const std::string& path);
    Next runCommand(const std::string& text);
    std::string inputFile(const CommandLine& command);
    void echo(const std::string& line);
    void showTitle(const CommandLine& command);
    void tell(const std::string& message);
    std::string currentDrive();

    WindowsDisk& disk_;
    Launcher launcher_;
    std::istream& in_;
    std::ostream& out_;
    Titles titles_;
    std::map<std::string, std::string>
        folders_;  ///< current folders of other drives, as host paths
    bool failed_ = false;
    std::string lastFailure_;  ///< how the last program failed, if it did
};

}  // namespace platform
