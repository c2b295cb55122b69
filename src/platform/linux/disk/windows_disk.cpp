#include "platform/linux/disk/windows_disk.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/linux/disk/case_fold.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view separators = "\\/";

bool isSeparator(char c) {
    return separators.find(c) != std::string_view::npos;
}

std::string withoutSlash(std::string path) {
    while (path.ends_with('/'))
        path.pop_back();
    return path;
}

/// False if the name contains a character that a Windows path cannot contain, or that would end a
/// line or a quoted text in a script. A short name never contains one.
bool fitsWindows(std::string_view name) {
    return std::ranges::none_of(name, [](char c) {
        constexpr std::string_view reserved = "\\:*?\"<>|";
        return static_cast<unsigned char>(c) < 0x20 || reserved.find(c) != std::string_view::npos;
    });
}

void leave(std::string& host, const std::string& root) {
    if (host.size() > root.size()) host.erase(host.rfind('/'));
}

}  // namespace

std::string currentFolder() {
    std::error_code failed;
    return withoutSlash(fs::current_path(failed).string());
}

std::optional<WindowsDisk::Start> WindowsDisk::startOf(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) return {};
    if (path.front() == '/') return Start{"", "", path.substr(0, 1)};
    if (path.starts_with("\\\\")) return {};

    const bool hasDrive = path.size() >= 2 && path[1] == ':' && isLetter(path[0]);
    const std::size_t used = hasDrive ? 2 : 0;
    const bool fromRoot = path.size() > used && isSeparator(path[used]);
    Start start{"", "", path.substr(0, used)};
    if (hasDrive) {
        const auto folder = drives_.folderOf(path[0]);
        if (!folder) return {};
        start.root = *folder;
    }
    if (hasDrive && fromRoot) {
        start.host = start.root;
        return start;
    }
    const std::string current = currentFolder();
    const std::string here = drives_.placeOf(current).folder;
    if (!hasDrive) start.root = here;
    start.host = !fromRoot && start.root == here ? current : start.root;
    return start;
}

/// Enters the path, or else its folder, if the disk has it in exactly this spelling, which saves
/// listing the folders. Returns the rest of the path.
std::string_view WindowsDisk::enterExact(std::string& host, std::string_view path) {
    std::string names(path);
    std::ranges::replace(names, '\\', '/');
    if (!names.starts_with('/')) names.insert(0, 1, '/');
    const auto has = [&](const char* text) { return names.find(text) != std::string::npos; };
    if (names.ends_with('/') || has("//") || has("/.")) return path;

    struct stat state = {};
    const auto isThere = [&] { return lstat((host + names).c_str(), &state) == 0; };
    if (isThere()) {
        host += names;
        return {};
    }
    names.erase(names.rfind('/'));
    if (names.empty() || !isThere()) return path;
    host += names;
    return path.substr(path.find_last_of(separators) + 1);
}

void WindowsDisk::enter(Found& place, std::string_view part, Spelling spelling) {
    Folder* folder = list(place.host);
    const std::string* name = folder != nullptr ? folder->find(part) : nullptr;
    place.host += '/';
    if (name != nullptr) {
        place.host += *name;
        if (spelling == Spelling::Host) return;
        const bool asItIs = spelling == Spelling::Long && fitsWindows(*name);
        place.text += asItIs ? *name : folder->shortFor(*name);
        return;
    }
    const std::string asGiven = folder != nullptr ? folder->nameForNew(part) : std::string(part);
    place.host += asGiven;
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
            if (part == "..") leave(place.host, start->root);
        } else {
            enter(place, part, spelling);
        }
    }
    return place;
}

std::string WindowsDisk::toHost(std::string_view path) {
    const auto found = follow(path, Spelling::Host);
    if (!found) return "";
    return found->host.empty() ? "/" : found->host;
}

std::string WindowsDisk::shortPath(std::string_view path) {
    const auto found = follow(path, Spelling::Short);
    if (!found || !found->exists) return "";
    std::error_code failed;
    const bool asFolder = isSeparator(path.back());
    return asFolder && !fs::is_directory(found->host + '/', failed) ? "" : found->text;
}

std::string WindowsDisk::longPath(std::string_view path) {
    const auto found = follow(path, Spelling::Long);
    return found ? found->text : std::string(path);
}

std::string WindowsDisk::toWindows(const std::string& hostPath) {
    const std::string plain = withoutSlash(fs::path(hostPath).lexically_normal().string());
    const fs::path path(plain.empty() ? "/" : plain);
    std::error_code failed;
    const fs::path folder = fs::weakly_canonical(path.parent_path(), failed);
    const std::string canonical =
        failed ? plain : withoutSlash((folder / path.filename()).string());

    Drives::Place place = drives_.placeOf(plain);
    const Drives::Place canonicalPlace = drives_.placeOf(canonical);
    const bool takeCanonical = canonicalPlace.folder.size() > place.folder.size();
    const std::string& chosen = takeCanonical ? canonical : plain;
    if (takeCanonical) place = canonicalPlace;
    if (place.drive.empty()) return hostPath;

    std::string host = place.folder;
    std::string result = place.drive;
    for (const fs::path& step : fs::path(chosen.substr(host.size())).relative_path()) {
        const std::string name = step.string();
        Folder* names = fitsWindows(name) ? nullptr : list(host);
        result += '\\';
        result += names != nullptr ? names->shortFor(name) : name;
        host += '/' + name;
    }
    return result.size() == place.drive.size() ? result + '\\' : result;
}

std::string WindowsDisk::nameHere(std::string_view name) {
    Folder* folder = list(currentFolder());
    if (folder == nullptr) return std::string(name);
    if (const std::string* known = folder->find(name)) return *known;
    std::string longName = folder->nameForNew(name);
    return longName != name ? longName : folder->spelledStem(name);
}

}  // namespace platform
