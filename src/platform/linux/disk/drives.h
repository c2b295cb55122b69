#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/disk/host_path.h"

namespace platform {

/// The drive letters: links "c:", "d:", "z:", ... in one folder, as in the dosdevices of a Wine
/// prefix. Their folders are canonical.
class Drives {
  public:
    /// Returns the drives of the user's Wine prefix or, if there is none, of a prefix of our own.
    /// That is created at the first start, with a new folder as c: and the root of the host as z:.
    static Drives ofUser();
    /// Reads the drives of the prefix.
    explicit Drives(HostPath prefix);

    /// Returns the folder of a drive letter in either case, or nullopt if there is no such drive.
    [[nodiscard]] std::optional<HostPath> folderOf(char letter) const;

    /// Returns the drives as "c:", sorted.
    [[nodiscard]] std::vector<std::string> names() const;

    struct Place {
        std::string drive;  ///< "c:"
        HostPath folder;    ///< the drive's folder
    };
    /// Returns the innermost drive that contains the path, or nullopt if none does.
    [[nodiscard]] std::optional<Place> placeOf(const HostPath& path) const;

    /// Returns the prefix, with which Wine has the same drives.
    [[nodiscard]] const HostPath& prefix() const { return prefix_; }

  private:
    HostPath prefix_;
    std::map<char, HostPath> folders_;  ///< by lower-case letter
};

}  // namespace platform
