#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/linux/disk/host_path.h"
#include "platform/linux/disk/short_names.h"

namespace platform {

/// The names in a host folder at the time it was read.
class Folder {
  public:
    /// Reads the folder. Returns nullopt with errno set if it cannot be listed.
    static std::optional<Folder> read(const HostPath& path);

    /// Finds the name on the disk that `name` means: the exact one, else one in another case, else
    /// the one with that short name. Returns null if there is none, or no single one.
    const std::string* find(std::string_view name);
    /// Returns the name to use if `find` finds none: with its long stem in place of a short one.
    std::string nameForNew(std::string_view name);
    /// Returns the short form of a name in this folder.
    std::string shortFor(const std::string& name);
    /// Returns the stem in the case that the names of this folder give it, or unchanged if none has
    /// it.
    [[nodiscard]] std::string spelledStem(std::string_view stem) const;

    /// True if no name can have been added or removed since the folder was read.
    [[nodiscard]] bool isCurrent() const;
    /// Returns the number of names held: those in the folder and its own.
    [[nodiscard]] std::size_t size() const { return 1 + names_.size(); }

  private:
    explicit Folder(HostPath path) : path_(std::move(path)) {}
    [[nodiscard]] const std::string* findExact(std::string_view name) const;
    const std::string* findInAnyCase(std::string_view name);
    ShortNames& shortNames();

    HostPath path_;
    struct stat state_ = {};
    bool settled_ = false;            ///< every change since then shows in the times of state_
    std::vector<std::string> names_;  ///< sorted
    // Built on first use.
    std::unordered_map<std::string, const std::string*> byFoldedName_;
    std::optional<ShortNames> shortNames_;
};

/// Keeps folders that were read until they change.
class FolderCache {
  public:
    /// Returns the folder as it is now, or null with errno set if it cannot be listed. Valid until
    /// the next call.
    Folder* at(const HostPath& path);

  private:
    std::unordered_map<std::string, Folder> folders_;  ///< by host path
    std::size_t names_ = 0;                            ///< in all folders together
};

}  // namespace platform
