#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The drive letters: a folder of links "c:", "d:", "z:", ..., as a Wine prefix keeps them in its
/// dosdevices. Folders of the host are canonical and have no slash at their end, so that "/" is
/// the empty text.
class Drives {
  public:
    /// The drives of the user's Wine prefix, or else of a prefix of our own, which is made at the
    /// first start with c: as a fresh folder and z: as the whole disk.
    static Drives ofUser();
    /// The drives of the prefix in a folder of the host.
    explicit Drives(std::string prefix);

    /// The folder that a letter in any case stands for, if there is such a drive.
    [[nodiscard]] std::optional<std::string> folderOf(char letter) const;

    /// The drives, as "c:", in order.
    [[nodiscard]] std::vector<std::string> names() const;

    struct Place {
        std::string drive;   ///< "c:"; empty if no drive reaches the place
        std::string folder;  ///< what the drive stands for
    };
    /// The drive whose folder is the longest beginning of a host path.
    [[nodiscard]] Place placeOf(std::string_view hostPath) const;

    /// The Wine prefix that sees the same letters.
    [[nodiscard]] const std::string& prefix() const { return prefix_; }

  private:
    std::string prefix_;
    std::map<char, std::string> folders_;  ///< by lower-case letter
};

}  // namespace platform
