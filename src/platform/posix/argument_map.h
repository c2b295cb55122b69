#pragma once

#include <string>
#include <vector>

#include "platform/posix/windows_disk.h"

namespace platform {

/// Turns the arguments of a program into names that it understands.
class ArgumentMap {
  public:
    /// The program is named in messages.
    ArgumentMap(WindowsDisk& disk, std::string program)
        : disk_(disk), program_(std::move(program)) {}

    /// For a program of the host: Windows paths become the host's, short names and names in the
    /// wrong case become those on the disk. An option's joined path ("-OFd:\words.txt") counts, and
    /// what begins with a slash and is not there counts from the root of the current drive. Throws
    /// RuntimeError for a path that no drive holds.
    void toHost(std::vector<std::string>& arguments);
    /// For a Windows program: paths and names stay Windows', short ones become long ones, since
    /// nobody else knows our short names.
    void toLongNames(std::vector<std::string>& arguments);

  private:
    enum class Target { Host, Windows };
    void map(std::vector<std::string>& arguments, Target target);
    std::string word(const std::string& word, Target target, bool mayBeValue);
    std::string option(const std::string& word, Target target);
    std::string path(const std::string& path, Target target);
    std::string rooted(const std::string& word);
    std::string name(const std::string& name, Target target);
    bool isJoinedPath(std::string_view text);

    WindowsDisk& disk_;
    std::string program_;
};

}  // namespace platform
