#include "platform/linux/disk/windows_disk.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "core/common_runtime.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/disk/files.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view separators = "\\/";

bool isSeparator(char c) {
    return separators.find(c) != std::string_view::npos;
}

const HostPath hostRoot("/");

}  // namespace

HostPath currentFolder() {
    std::error_code failed;
    const fs::path current = fs::current_path(failed);
    return failed ? hostRoot : HostPath(current);
}

std::optional<WindowsDisk::Start> WindowsDisk::startOf(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) return {};
    if (path.front() == '/') return Start{hostRoot, hostRoot, path.substr(0, 1)};
    if (path.starts_with("\\\\")) return {};

    const bool hasDrive = path.size() >= 2 && path[1] == ':' && isLetter(path[0]);
    const std::size_t used = hasDrive ? 2 : 0;
    const bool fromRoot = path.size() > used && isSeparator(path[used]);
    const std::string_view leading = path.substr(0, used);
    std::optional<HostPath> root;
    if (hasDrive) {
        root = drives_.folderOf(path[0]);
        if (!root) return {};
        if (fromRoot) return Start{*root, *root, leading};
    }
    const HostPath current = currentFolder();
    const auto place = drives_.placeOf(current);
    const HostPath& here = place ? place->folder : hostRoot;
    if (!root) root = here;
    return Start{!fromRoot && *root == here ? current : *root, *root, leading};
}

/// Enters the path, or else its folder, if the disk has it in exactly this spelling, which saves
/// listing the folders. Returns the rest of the path.
std::string_view WindowsDisk::enterExact(HostPath& host, std::string_view path) {
    std::string names(path);
    std::ranges::replace(names, '\\', '/');
    if (!names.starts_with('/')) names.insert(0, 1, '/');
    const auto has = [&](const char* text) { return names.find(text) != std::string::npos; };
    if (names.ends_with('/') || has("//") || has("/.")) return path;

    struct stat state = {};
    const auto enterIfThere = [&] {
        HostPath place = host / std::string_view(names).substr(1);
        const bool isThere = lstat(place.c_str(), &state) == 0;
        if (isThere) host = std::move(place);
        return isThere;
    };
    if (enterIfThere()) return {};
    names.erase(names.rfind('/'));
    if (names.empty() || !enterIfThere()) return path;
    return path.substr(path.find_last_of(separators) + 1);
}

void WindowsDisk::enter(Found& place, std::string_view part, Spelling spelling) {
    Folder* folder = folders_.at(place.host);
    if (folder == nullptr && !tellsOfNoFile(errno) && errno != EACCES) place.error = errno;
    const std::string* name = folder != nullptr ? folder->find(part) : nullptr;
    if (name != nullptr) {
        place.host = place.host / *name;
        if (spelling == Spelling::Host) return;
        const bool asItIs = spelling == Spelling::Long && fitsWindows(*name);
        place.text += asItIs ? *name : folder->shortFor(*name);
        return;
    }
    const std::string asGiven = folder != nullptr ? folder->nameForNew(part) : std::string(part);
    place.host = place.host / asGiven;
    place.text += fitsWindows(asGiven) ? asGiven : part;
    // The name can exist in a folder that may be entered but not listed.
    struct stat state = {};
    if (folder != nullptr || lstat(place.host.c_str(), &state) != 0) place.exists = false;
}

std::optional<WindowsDisk::Found> WindowsDisk::follow(std::string_view path, Spelling spelling) {
    const auto start = startOf(path);
    if (!start) return {};
    Found place{start->host, std::string(start->leading), true};
    path.remove_prefix(start->leading.size());
    if (spelling == Spelling::Host) path = enterExact(place.host, path);
    while (!path.empty()) {
        if (isSeparator(path.front())) {
            place.text += path.front();
            path.remove_prefix(1);
            continue;
        }
        const std::string_view part = path.substr(0, path.find_first_of(separators));
        path.remove_prefix(part.size());
        if (part == "." || part == "..") {
            place.text += part;
            if (part == ".." && place.host != start->root) place.host = place.host.parent();
        } else {
            enter(place, part, spelling);
        }
    }
    return place;
}

std::optional<HostPath> WindowsDisk::toHost(std::string_view path) {
    const auto found = follow(path, Spelling::Host);
    if (!found) return {};
    if (found->error != 0) core::failTo("look up", std::string(path), std::strerror(found->error));
    return found->host;
}

std::optional<HostPath> WindowsDisk::toNewHost(std::string_view path) {
    const std::size_t name = path.find_last_of("\\/:") + 1;
    const auto folder = toHost(name == 0 ? "." : path.substr(0, name));
    if (!folder) return {};
    return *folder / path.substr(name);
}

std::string WindowsDisk::shortPath(std::string_view path) {
    const auto found = follow(path, Spelling::Short);
    if (!found || !found->exists) return "";
    std::error_code failed;
    const bool asFolder = isSeparator(path.back());
    return asFolder && !fs::is_directory(found->host.text(), failed) ? "" : found->text;
}

std::string WindowsDisk::longPath(std::string_view path) {
    const auto found = follow(path, Spelling::Long);
    return found ? found->text : std::string(path);
}

std::string WindowsDisk::toWindows(const HostPath& hostPath) {
    HostPath path(fs::path(hostPath.text()).lexically_normal());
    std::error_code failed;
    const fs::path folder = fs::weakly_canonical(path.parent().text(), failed);
    const HostPath canonical = failed ? path : HostPath(folder) / path.name();

    const auto lengthOf = [](const auto& place) { return place ? place->folder.text().size() : 0; };
    auto place = drives_.placeOf(path);
    const auto canonicalPlace = drives_.placeOf(canonical);
    if (lengthOf(canonicalPlace) > lengthOf(place)) {
        path = canonical;
        place = canonicalPlace;
    }
    if (!place) return hostPath.text();

    HostPath host = place->folder;
    std::string result = place->drive;
    for (const fs::path& step : fs::path(path.text().substr(host.text().size())).relative_path()) {
        result += '\\' + windowsName(host, step);
        host = host / step.string();
    }
    return path == place->folder ? result + '\\' : result;
}

std::string WindowsDisk::windowsName(const HostPath& folder, const std::string& name) {
    Folder* names = fitsWindows(name) ? nullptr : folders_.at(folder);
    return names != nullptr ? names->shortFor(name) : name;
}

std::string WindowsDisk::nameHere(std::string_view name) {
    Folder* folder = folders_.at(currentFolder());
    if (folder == nullptr) return std::string(name);
    if (const std::string* known = folder->find(name)) return *known;
    std::string longName = folder->nameForNew(name);
    return longName != name ? longName : folder->spelledStem(name);
}

}  // namespace platform
