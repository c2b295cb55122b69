#include "platform/linux/disk/drives.h"

#include <filesystem>
#include <system_error>

#include "platform/linux/disk/case_fold.h"
#include "platform/linux/disk/files.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* linksFolder = "dosdevices";

/// Makes what is missing. Ignores errors: the program then has no drives, but host paths still
/// work.
void makePrefix(const fs::path& prefix) {
    std::error_code failed;
    fs::create_directories(prefix / "drive_c", failed);
    fs::create_directories(prefix / linksFolder, failed);
    fs::create_directory_symlink("../drive_c", prefix / linksFolder / "c:", failed);
    fs::create_directory_symlink("/", prefix / linksFolder / "z:", failed);
}

}  // namespace

Drives Drives::ofUser() {
    std::error_code none;
    const HostPath wine = userFolder("WINEPREFIX", ".wine");
    if (fs::is_directory((wine / linksFolder).text(), none)) return Drives(wine);
    const HostPath own = userFolder("XDG_DATA_HOME", ".local/share") / "nwbw";
    makePrefix(own.text());
    return Drives(own);
}

std::optional<HostPath> Drives::folderOf(char letter) const {
    const HostPath links = prefix_ / linksFolder;
    for (const int name : {letter | 0x20, letter & ~0x20}) {
        std::error_code failed;
        const std::string link{static_cast<char>(name), ':'};
        const fs::path target = fs::canonical((links / link).text(), failed);
        if (!failed) return HostPath(target);
    }
    return {};
}

std::map<char, HostPath> Drives::folders() const {
    std::map<char, HostPath> folders;
    std::error_code failed;
    fs::directory_iterator links((prefix_ / linksFolder).text(), failed);
    for (; links != fs::directory_iterator(); links.increment(failed)) {
        const std::string name = links->path().filename();
        if (name.size() != 2 || !isLetter(name[0]) || name[1] != ':') continue;
        if (const auto folder = folderOf(name[0])) folders.emplace(caseFolded(name)[0], *folder);
    }
    return folders;
}

std::optional<Drives::Place> Drives::placeOf(const HostPath& path) const {
    std::optional<Place> best;
    for (const auto& [letter, folder] : folders()) {
        const bool inner = !best || (folder.isIn(best->folder) && folder != best->folder);
        if (inner && path.isIn(folder)) best = {{letter, ':'}, folder};
    }
    return best;
}

std::vector<std::string> Drives::names() const {
    std::vector<std::string> names;
    for (const auto& [letter, folder] : folders())
        names.push_back(std::string{letter, ':'});
    return names;
}

}  // namespace platform
