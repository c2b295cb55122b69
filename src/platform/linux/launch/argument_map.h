#pragma once

#include <string>
#include <vector>

#include "platform/linux/disk/windows_disk.h"

namespace platform {

/// Translates a program's arguments into file names that it understands.
class ArgumentMap {
  public:
    /// `program` is the name to use in error messages.
    ArgumentMap(WindowsDisk& disk, std::string program)
        : disk_(disk), program_(std::move(program)) {}

    /// For a host program: turns Windows paths into host paths, and short names and names in the
    /// wrong case into the names on the disk. This includes a path joined to an option
    /// ("-OFd:\words.txt"). A word that begins with a slash and does not exist on the host is taken
    /// from the root of the current drive. Throws RuntimeError for a path on no known drive.
    void toHost(std::vector<std::string>& arguments);
    /// For a Windows program: keeps Windows paths, but replaces short names by long ones, since no
    /// other program knows our short names.
    void toLongNames(std::vector<std::string>& arguments);

  private:
    enum class Target { Host, Windows };
    void map(std::vector<std::string>& arguments, Target target);
    std::string word(const std::string& word, Target target, bool mayBeValue);
    std::string option(const std::string& word, Target target);
    std::string path(const std::string& path, Target target);
    std::string rooted(const std::string& word);
    /// For a name in the current folder. Puts "./" before one that would look like an option.
    std::string name(const std::string& name, Target target);
    bool isJoinedPath(std::string_view text);

    WindowsDisk& disk_;
    std::string program_;
};

}  // namespace platform
