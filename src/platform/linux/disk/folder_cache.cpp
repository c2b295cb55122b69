#include "platform/linux/disk/folder_cache.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "platform/linux/disk/case_fold.h"
#include "platform/linux/disk/files.h"

namespace platform {

namespace {

constexpr std::size_t maxNames = 200'000;  // about 20 MB
constexpr std::int64_t second = 1'000'000'000;
// The coarsest granularity of times in file systems in use. A second change of a folder within it
// does not show in the folder's times.
constexpr std::int64_t coarsestTick = 2 * second;

std::int64_t nanoseconds(const timespec& time) {
    return time.tv_sec * second + time.tv_nsec;
}

std::int64_t now() {
    timespec time = {};
    clock_gettime(CLOCK_REALTIME, &time);
    return nanoseconds(time);
}

bool sameState(const struct stat& one, const struct stat& other) {
    return one.st_ino == other.st_ino && one.st_dev == other.st_dev &&
           nanoseconds(one.st_mtim) == nanoseconds(other.st_mtim) &&
           nanoseconds(one.st_ctim) == nanoseconds(other.st_ctim);
}

/// True if every later change of the folder will show in its times. Some file systems keep no times
/// for their root.
bool showsChanges(const struct stat& state) {
    const std::int64_t changed = nanoseconds(state.st_mtim);
    return changed != 0 && std::abs(now() - changed) > coarsestTick;
}

}  // namespace

std::optional<Folder> Folder::read(const HostPath& path) {
    const std::unique_ptr<DIR, int (*)(DIR*)> handle(openFolder(path), closedir);
    Folder folder(path);
    if (!handle || fstat(dirfd(handle.get()), &folder.state_) != 0) return {};
    folder.settled_ = showsChanges(folder.state_);
    errno = 0;
    while (const dirent* entry = readdir(handle.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") folder.names_.emplace_back(name);
        errno = 0;
    }
    if (errno != 0) return {};
    std::ranges::sort(folder.names_);
    return folder;
}

bool Folder::isCurrent() const {
    struct stat state = {};
    return settled_ && stat(path_.c_str(), &state) == 0 && sameState(state, state_);
}

const std::string* Folder::findExact(std::string_view name) const {
    const auto found = std::ranges::lower_bound(names_, name);
    return found != names_.end() && *found == name ? &*found : nullptr;
}

const std::string* Folder::findInAnyCase(std::string_view name) {
    // Only a settled folder is cached, which makes an index worthwhile.
    if (!settled_) {
        const auto found = std::ranges::find_if(
            names_, [&](const auto& known) { return equalIgnoringCase(known, name); });
        return found != names_.end() ? &*found : nullptr;
    }
    if (byFoldedName_.empty()) {
        for (const std::string& known : names_)
            byFoldedName_.emplace(caseFolded(known), &known);
    }
    const auto found = byFoldedName_.find(caseFolded(name));
    return found != byFoldedName_.end() ? found->second : nullptr;
}

const std::string* Folder::find(std::string_view name) {
    if (const std::string* exact = findExact(name)) return exact;
    if (const std::string* known = findInAnyCase(name)) return known;
    // A name that differs from the long one in case is another file.
    return findExact(nameForNew(name));
}

std::string Folder::nameForNew(std::string_view name) {
    return mayBeShortened(name) ? shortNames().longFor(name) : std::string(name);
}

std::string Folder::shortFor(const std::string& name) {
    return isShortName(name) ? name : shortNames().shortFor(name);
}

std::string Folder::spelledStem(std::string_view stem) const {
    std::string_view spelled = stem;
    for (const std::string& name : names_) {
        const std::string_view known = NameParts(name).stem;
        if (known == stem) return std::string(stem);
        if (equalIgnoringCase(known, stem)) spelled = known;
    }
    return std::string(spelled);
}

ShortNames& Folder::shortNames() {
    if (!shortNames_) shortNames_.emplace(names_);
    return *shortNames_;
}

Folder* FolderCache::at(const HostPath& path) {
    const auto known = folders_.find(path.text());
    if (known != folders_.end()) {
        if (known->second.isCurrent()) return &known->second;
        names_ -= known->second.size();
        folders_.erase(known);
    }
    std::optional<Folder> folder = Folder::read(path);
    if (!folder) return nullptr;
    if (names_ + folder->size() > maxNames) {
        folders_.clear();
        names_ = 0;
    }
    names_ += folder->size();
    return &folders_.emplace(path.text(), std::move(*folder)).first->second;
}

}  // namespace platform
