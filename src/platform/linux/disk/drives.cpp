#include "platform/linux/disk/drives.h"

#include <QDir>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "platform/linux/disk/case_fold.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* linksFolder = "dosdevices";

std::string ownPrefix() {
    const auto data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return data.toStdString() + "/nwbw";
}

std::string usersPrefix() {
    std::error_code none;
    const char* set = std::getenv("WINEPREFIX");
    const std::string wine = set != nullptr ? set : QDir::homePath().toStdString() + "/.wine";
    return fs::is_directory(fs::path(wine) / linksFolder, none) ? wine : ownPrefix();
}

/// Ignores errors: the program then has no drives, but host paths still work.
void makePrefix(const fs::path& prefix) {
    std::error_code failed;
    if (fs::exists(prefix / linksFolder, failed)) return;
    fs::create_directories(prefix / "drive_c", failed);
    fs::create_directories(prefix / linksFolder, failed);
    fs::create_directory_symlink("../drive_c", prefix / linksFolder / "c:", failed);
    fs::create_directory_symlink("/", prefix / linksFolder / "z:", failed);
}

}  // namespace

Drives Drives::ofUser() {
    const HostPath prefix(usersPrefix());
    makePrefix(prefix.text());
    return Drives(prefix);
}

Drives::Drives(HostPath prefix) : prefix_(std::move(prefix)) {
    std::error_code failed;
    fs::directory_iterator links((prefix_ / linksFolder).text(), failed);
    for (; links != fs::directory_iterator(); links.increment(failed)) {
        const fs::directory_entry& link = *links;
        const std::string name = link.path().filename().string();
        if (name.size() != 2 || !isLetter(name[0]) || name[1] != ':') continue;
        const fs::path target = fs::canonical(link.path(), failed);
        if (!failed) folders_.emplace(caseFolded(name)[0], target);
    }
}

std::optional<HostPath> Drives::folderOf(char letter) const {
    const auto found = folders_.find(caseFolded({&letter, 1})[0]);
    if (found == folders_.end()) return {};
    return found->second;
}

std::optional<Drives::Place> Drives::placeOf(const HostPath& path) const {
    std::optional<Place> best;
    for (const auto& [letter, folder] : folders_) {
        const bool inner = !best || (folder.isIn(best->folder) && folder != best->folder);
        if (inner && path.isIn(folder)) best = {{letter, ':'}, folder};
    }
    return best;
}

std::vector<std::string> Drives::names() const {
    std::vector<std::string> names;
    for (const auto& [letter, folder] : folders_)
        names.push_back(std::string{letter, ':'});
    return names;
}

}  // namespace platform
