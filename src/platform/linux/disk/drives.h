#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/disk/host_path.h"

namespace platform {

/// The drive letters: links "c:", "d:", "z:", ... in one folder, as in the dosdevices of a Wine
/// prefix. Their folders are canonical. A link is looked at when it is used, since a drive can
/// appear at any time.
class Drives {
  public:
    /// Returns the drives of the user's Wine prefix or, if there is none, of a prefix of our own.
    /// There, c: is a new folder and z: the root of the host, unless the user has linked them
    /// otherwise.
    static Drives ofUser();
    explicit Drives(HostPath prefix) : prefix_(std::move(prefix)) {}

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
    /// Returns the drives' folders by lower-case letter.
    [[nodiscard]] std::map<char, HostPath> folders() const;

    HostPath prefix_;
};

}  // namespace platform
