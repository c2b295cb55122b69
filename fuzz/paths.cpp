// A path maps to one file on its drive, in any letter case and in its short form, and back.

#include <algorithm>

#include "check.h"
#include "core/runtime.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/disk/short_names.h"
#include "platform/linux/launch/argument_map.h"
#include "test_drives.h"

namespace {

using fuzz::check;
namespace fs = std::filesystem;

std::string otherCase(std::string text) {
    for (char& c : text)
        if (platform::isLetter(c)) c ^= 0x20;
    return text;
}

using platform::HostPath;

void checkPlace(fuzz::TestDrives& drives, const std::string& path, const HostPath& place) {
    const bool onD = path.size() >= 2 && (path[0] | 0x20) == 'd' && path[1] == ':';
    const std::string& host = place.text();
    check(place.isIn(HostPath(onD ? drives.d : drives.c)), "a path stays on its drive");
    check(host == fs::path(host).lexically_normal(), "a place has one name");
    const auto other = drives.disk.toHost(otherCase(path));
    check(other && platform::equalIgnoringCase(other->text(), host), "case does not matter");

    const std::string windows = drives.disk.toWindows(place);
    // A new name has no short form of its own: one that needs it takes its stem from the disk.
    std::error_code failed;
    const bool newInShort = !platform::fitsWindows(host) && !fs::exists(host, failed);
    check(newInShort || drives.disk.toHost(windows) == place, "to Windows and back");
    check(drives.disk.toHost(drives.disk.longPath(path)) == place,
          "the long form is the same place");
}

void checkShortForm(fuzz::TestDrives& drives, const std::string& path, const HostPath& place) {
    const std::string& host = place.text();
    const std::string shortPath = drives.disk.shortPath(path);
    std::error_code failed;
    if (shortPath.empty()) {
        const bool asFolder = path.ends_with('\\') || path.ends_with('/');
        const bool exists = asFolder ? fs::is_directory(host, failed) : fs::exists(host, failed);
        const bool goesBack = path.find("..") != std::string::npos;  // maybe from a missing folder
        check(!exists || goesBack, "what exists has a short form");
        return;
    }
    check(fs::exists(host, failed), "only what exists has a short form");
    check(drives.disk.toHost(shortPath) == place, "the short form is the same place");
    check(drives.disk.shortPath(shortPath) == shortPath, "the short form is its own");
    check(shortPath.find_first_of(" \"<>|\n") == std::string::npos, "no short form needs quotes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static fuzz::TestDrives drives(
        {"drive_c/My Games/Wizardquest.kel", "drive_c/My Games/wizardquest.LIS",
         "drive_c/My Games/wizards.of.oz", "drive_c/My Games/\xc3\x89lan Vital.kel",
         "drive_c/My Games/caf\xe9.kel", "drive_c/My Games/x\ndel\".kel", "drive_c/a\\b/c:.kel",
         "drive_c/A Long Name", "drive_c/a long name/cave.kel", "drive_c/ALONGN~1/x",
         "drive_c/kelm/k.exe", "drive_d/tales/old.kcd"});
    const std::string path(reinterpret_cast<const char*>(data), size);
    if (path.starts_with('/')) return -1;  // maps to the host's own folders

    const auto host = drives.disk.toHost(path);
    std::vector<std::string> words = {path, "-OF" + path};
    try {
        platform::ArgumentMap(drives.disk, "k").toHost(words);
    } catch (const core::RuntimeError&) {
        // The paths are on no drive.
    }
    check(words[1].starts_with("-OF"), "an option stays one");
    if (!host) {
        const bool noDrive = (path.size() >= 2 && path[1] == ':' && (path[0] | 0x20) != 'c' &&
                              (path[0] | 0x20) != 'd') ||
                             path.starts_with("\\\\");
        check(path.find('\0') != std::string::npos || path.empty() || noDrive,
              "a path leads somewhere");
        check(drives.disk.shortPath(path).empty(), "no place has no short form");
        return 0;
    }
    checkPlace(drives, path, *host);
    checkShortForm(drives, path, *host);
    return 0;
}
