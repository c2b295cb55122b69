#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/posix/drives.h"
#include "platform/posix/folder_cache.h"

namespace platform {

/// The host's disk as Windows programs see it: drive letters, names found without regard to case,
/// short names. A relative path counts from the current folder of the process; one with a drive
/// but no backslash from there too if that folder lies on the drive, else from the drive's root.
/// ".." is taken out of the text, as Windows does, and never leads above a root. A slash parts
/// names as a backslash does, since no name of the host can hold one, and a path that begins with
/// a slash is the host's own.
class WindowsDisk {
  public:
    explicit WindowsDisk(Drives drives) : drives_(std::move(drives)) {}

    /// The host's path for a path with long or short names; a file that is not there yet gets the
    /// name given. Empty if the path is empty, holds a NUL byte, or names a computer or a drive
    /// that is not there.
    std::string toHost(std::string_view path);
    /// The Windows path of an absolute host path; the host path itself if no drive reaches it.
    std::string toWindows(const std::string& hostPath);
    /// The path with the short form of every part; empty if it names nothing that exists.
    std::string shortPath(std::string_view path);
    /// The path with each part as it is on the disk, short names replaced by the long ones that a
    /// Windows path can hold; parts that are not there stay as given.
    std::string longPath(std::string_view path);

    /// The name on the disk that a bare name or stem stands for in the current folder: the long one
    /// for a short one, the right case for a wrong one, also of a stem alone; else the name given.
    std::string nameHere(std::string_view name);

    [[nodiscard]] const Drives& drives() const { return drives_; }

  private:
    enum class Spelling { Short, Long, Host };
    struct Found {
        std::string host;  ///< "/" is empty here
        std::string text;  ///< the path in the spelling asked for, if it is not the host's
        bool exists = true;
    };
    struct Start {
        std::string host;
        std::string root;          ///< ".." does not lead above it
        std::string_view leading;  ///< the part of the path that is used up
    };
    Folder* list(const std::string& host) { return folders_.at(host.empty() ? "/" : host); }
    std::optional<Start> startOf(std::string_view path);
    std::optional<Found> follow(std::string_view path, Spelling spelling);
    static std::string_view enterExact(std::string& host, std::string_view path);
    void enter(Found& place, std::string_view part, Spelling spelling);

    Drives drives_;
    FolderCache folders_;
};

/// The current folder of the process, an absolute path without a slash at its end.
std::string currentFolder();

}  // namespace platform
