#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The drive letters: links "c:", "d:", "z:", ... in one folder, as in the dosdevices of a Wine
/// prefix. Host folders are canonical and have no trailing slash, so "/" is the empty string.
class Drives {
  public:
    /// Returns the drives of the user's Wine prefix or, if there is none, of a prefix of our own.
    /// That is created at the first start, with a new folder as c: and the root of the host as z:.
    static Drives ofUser();
    /// Reads the drives of the prefix in a host folder.
    explicit Drives(std::string prefix);

    /// Returns the folder of a drive letter in either case, or nullopt if there is no such drive.
    [[nodiscard]] std::optional<std::string> folderOf(char letter) const;

    /// Returns the drives as "c:", sorted.
    [[nodiscard]] std::vector<std::string> names() const;

    struct Place {
        std::string drive;   ///< "c:"; empty if no drive contains the place
        std::string folder;  ///< the drive's folder
    };
    /// Returns the drive whose folder is the longest prefix of a host path.
    [[nodiscard]] Place placeOf(std::string_view hostPath) const;

    /// Returns the prefix, with which Wine has the same drives.
    [[nodiscard]] const std::string& prefix() const { return prefix_; }

  private:
    std::string prefix_;
    std::map<char, std::string> folders_;  ///< by lower-case letter
};

}  // namespace platform
