#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/posix/short_names.h"

namespace platform {

/// The names in one folder of the host, as they were when it was read.
class Folder {
  public:
    /// Reads the folder; nothing if it cannot be listed.
    static std::optional<Folder> read(const std::string& path);

    /// The name on the disk that is meant: the exact one, else one in another case, else the one
    /// with that short name; null if there is none.
    const std::string* find(std::string_view name);
    /// The name to use where none is found: a short stem is replaced by its long one.
    std::string nameForNew(std::string_view name);
    /// The short form of a name of this folder.
    const std::string& shortFor(const std::string& name);
    /// The stem as the names of this folder spell it, if they do so in another case only.
    [[nodiscard]] std::string spelledStem(std::string_view stem) const;

    /// True while nothing was added to the folder or taken from it since it was read.
    [[nodiscard]] bool isCurrent() const;
    /// The number of names held: the folder's own, and those in it.
    [[nodiscard]] std::size_t size() const { return 1 + names_.size(); }

  private:
    explicit Folder(std::string path) : path_(std::move(path)) {}
    [[nodiscard]] const std::string* findExact(std::string_view name) const;
    const std::string* findInAnyCase(std::string_view name);
    ShortNames& shortNames();

    std::string path_;
    struct stat state_ = {};
    bool settled_ = false;            ///< any change since the reading shows in the state
    std::vector<std::string> names_;  ///< sorted
    // Made at the first need.
    std::unordered_map<std::string, const std::string*> byFoldedName_;
    std::optional<ShortNames> shortNames_;
};

/// The folders that were read, each kept until it changes.
class FolderCache {
  public:
    /// The folder as it is now; null if it cannot be listed. Valid until the next call.
    Folder* at(const std::string& path);

  private:
    std::unordered_map<std::string, Folder> folders_;
    std::size_t names_ = 0;  ///< of all folders together
};

}  // namespace platform
