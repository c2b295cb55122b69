#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/disk/drives.h"
#include "platform/linux/disk/folder_cache.h"

namespace platform {

/// The host's disk as Windows programs see it, with drive letters, case-insensitive names and short
/// names. A relative path starts at the current folder of the process. So does a path with a drive
/// but without a backslash if that folder is on the drive; otherwise it starts at the drive's root.
/// ".." is resolved in the text, as on Windows, and never leads above a root. A slash separates
/// names like a backslash, since no host name can contain one, and a path that begins with a slash
/// is a host path.
class WindowsDisk {
  public:
    explicit WindowsDisk(Drives drives) : drives_(std::move(drives)) {}

    /// Returns the host path for a path with long or short names; a file that does not exist keeps
    /// the name given. Returns nullopt if the path is empty, contains a NUL byte, names a computer,
    /// or has an unknown drive. Throws core::RuntimeError if a folder's names cannot be read for
    /// another reason than that it does not exist or that the user may not list it.
    std::optional<HostPath> toHost(std::string_view path);
    /// Returns the host path for a file to be created at the path, in exactly this spelling.
    std::optional<HostPath> toNewHost(std::string_view path);
    /// Returns the Windows path of a host path, or the host path itself if no drive contains it.
    std::string toWindows(const HostPath& hostPath);
    /// Returns the path with the short form of every part, or an empty string if it does not exist.
    std::string shortPath(std::string_view path);
    /// Returns the path as spelled on the disk, with long names for short ones where a Windows path
    /// can contain them. Parts that do not exist stay as given.
    std::string longPath(std::string_view path);

    /// Returns the name on the disk that a bare name or stem means in the current folder: the long
    /// one for a short one, and the right case for a wrong one. Returns it unchanged if there is
    /// none.
    std::string nameHere(std::string_view name);

    /// Returns the name that a Windows path has for a file or folder in `folder`: its own or, if a
    /// Windows path cannot contain that, its short form.
    std::string windowsName(const HostPath& folder, const std::string& name);

    [[nodiscard]] const Drives& drives() const { return drives_; }

  private:
    enum class Spelling { Short, Long, Host };
    struct Found {
        HostPath host;
        std::string text;  ///< the path in the spelling Short or Long
        bool exists = true;
        int error = 0;  ///< why a folder's names could not be read
    };
    struct Start {
        HostPath host;
        HostPath root;             ///< ".." does not lead above it
        std::string_view leading;  ///< the part of the path used so far
    };
    std::optional<Start> startOf(std::string_view path);
    std::optional<Found> follow(std::string_view path, Spelling spelling);
    static std::string_view enterExact(HostPath& host, std::string_view path);
    void enter(Found& place, std::string_view part, Spelling spelling);

    Drives drives_;
    FolderCache folders_;
};

/// Returns the current folder of the process, or the root if it no longer exists.
HostPath currentFolder();

}  // namespace platform
