#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "linux_desktop.h"
#include "platform/linux/linux_runtime.h"

using namespace platform;
using core::Runtime;

/// Size of the last file when it was flushed to disk.
static off_t flushed = 0;

/// Replaces the system's, which would wait for the disk.
extern "C" int fsync(int handle) {
    flushed = lseek(handle, 0, SEEK_CUR);
    return 0;
}

/// Replaces the system's: behaves like a file system without RENAME_NOREPLACE.
extern "C" int renameat2(int, const char*, int, const char*, unsigned) noexcept {
    errno = EINVAL;
    return -1;
}

/// Replaces the system's: behaves as if a server no longer knew the file "lost".
extern "C" int stat(const char* path, struct stat* state) noexcept {
    if (!std::string_view(path).ends_with("/lost")) return fstatat(AT_FDCWD, path, state, 0);
    errno = ESTALE;
    return -1;
}

namespace {

class Disk : public LinuxDesktop {
  protected:
    /// Returns the host path of a Windows path; empty if there is no such place.
    fs::path hostOf(const std::string& path) {
        const auto host = disk.toHost(path);
        return host ? host->text() : "";
    }

    WindowsDisk disk{Drives::ofUser()};
};

}  // namespace

TEST_F(Disk, FollowsPathsAndShortensThem) {
    for (const char* file :
         {"My Games/Wizardquest.kel", "My Games/wizardquest.LIS", "My Games/wizards.of.oz",
          "My Games/Élan Vital.kel", "My Games/caf\xe9.kel", "kelm/standard library/x"})
        write(c / file);
    write(d / "tales/thelongadventure.kelm");
    fs::current_path(c / "My Games");
    const fs::path games = c / "My Games";
    const std::tuple<std::string, fs::path, const char*> cases[] = {
        {"c:\\my games\\WIZARDQUEST.kel", games / "Wizardquest.kel", "c:\\MYGAME~1\\WIZARD~1.KEL"},
        {"C:/MYGAME~1/wizard~1.lis", games / "wizardquest.LIS", "C:/MYGAME~1/WIZARD~1.LIS"},
        {"wizard~2.OZ", games / "wizards.of.oz", "WIZARD~2.OZ"},
        {"élan vital.KEL", games / "Élan Vital.kel", "_LANVI~1.KEL"},
        {"D:tales\\thelongadventure.kelm", d / "tales/thelongadventure.kelm",
         "D:tales\\THELON~1.KEL"},
        {"\\KELM\\standard library\\", c / "kelm/standard library", "\\kelm\\STANDA~1\\"},
        {"c:\\kelm\\..\\kelm", c / "kelm", "c:\\kelm\\..\\kelm"},
        {"c:\\", c, "c:\\"},
        {"z:\\", "/", "z:\\"},
        {"z:\\USR\\bin", "/usr/bin", "z:\\usr\\bin"},
        {"c:new.kel", games / "new.kel", ""},
        {"caf\xea.kel", games / "caf\xea.kel", ""},
        {"WIZARD~1.kcd", games / "Wizardquest.kcd", ""},
        {"c:\\..\\..\\My Games\\.\\x", games / "x", ""},
        {"wizardquest.lis\\", games / "wizardquest.LIS", ""},
        {"é:\\x", games / "é:/x", ""},
        {"q:\\x", "", ""},
        {"", "", ""},
        {std::string("c:\\cave\0.kel", 12), "", ""},
    };
    for (const auto& [path, host, shortPath] : cases) {
        EXPECT_EQ(hostOf(path), host) << path;
        EXPECT_EQ(disk.shortPath(path), shortPath) << path;
    }
}

TEST_F(Disk, MapsHostPathsToTheNearestDrive) {
    write(c / "a\\b/x\ndel\".kel");
    fs::create_directory_symlink(d, home / "shortcut");
    const std::pair<fs::path, std::string> cases[] = {
        {c / "my games/x.kel", "c:\\my games\\x.kel"},
        {d, "d:\\"},
        {home / "shortcut/x.kel", "d:\\x.kel"},
        {c / "a\\b/x\ndel\".kel", "c:\\A_B~1\\X_DEL_~1.KEL"},
        {"/usr/bin", "z:\\usr\\bin"},
        {"/", "z:\\"},
    };
    for (const auto& [host, path] : cases) {
        EXPECT_EQ(disk.toWindows(HostPath(host)), path) << host;
        EXPECT_EQ(hostOf(path), fs::weakly_canonical(host)) << host;
    }
    EXPECT_EQ(hostOf(d), d);
    EXPECT_TRUE(disk.toWindows(HostPath(d.string() + "2")).starts_with("z:\\"));
}

TEST_F(LinuxDesktop, TakesTheDrivesOfTheWinePrefixOrMakesItsOwn) {
    fs::create_directories(home / ".wine/dosdevices");
    fs::create_directory_symlink(d, home / ".wine/dosdevices/w:");
    EXPECT_EQ(Drives::ofUser().folderOf('W'), HostPath(d));
    setenv("WINEPREFIX", (home / "none").c_str(), 1);
    EXPECT_EQ(Drives::ofUser().names(), (std::vector<std::string>{"c:", "d:", "z:"}));
    fs::remove_all(home / "nwbw");
    const Drives fresh = Drives::ofUser();
    EXPECT_EQ(fresh.folderOf('c'), HostPath(c));
    EXPECT_EQ(fresh.folderOf('z'), HostPath("/"));
}

TEST_F(Disk, SeesEveryChangeOfAKeptFolder) {
    const fs::path source = c / "games/wizardquest.kel";
    for (int round = 0; round < 3; ++round) {
        write(source);
        // The listing of a folder that has not changed for a while is cached.
        fs::last_write_time(c / "games", fs::file_time_type::clock::now() - std::chrono::hours(1));
        for (const char* shortPath : {"c:\\games\\WIZARD~1.KEL", "c:\\games\\WIZARD~1.KEL", ""}) {
            if (*shortPath == '\0') fs::remove(source);
            EXPECT_EQ(disk.shortPath("c:\\games\\wizardquest.kel"), shortPath);
        }
    }
    write(source);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // a file system's clock is coarse
    write(c / "games/wizardapple.kel");
    EXPECT_EQ(disk.shortPath("c:\\games\\wizardapple.kel"), "c:\\games\\WIZARD~2.KEL");
}

TEST(ShortNames, KeepToEightCharactersWhenManyCompete) {
    std::vector<std::string> names = {"chapte~3.txt"};
    for (int i = 10'000; i < 20'200; ++i)
        names.push_back("chapter" + std::to_string(i) + ".kel");
    const ShortNames shortNames(names, [](const auto&) { return 0; });
    EXPECT_EQ(shortNames.shortFor("chapter10001.kel"), "CHAPTE~2.KEL");
    EXPECT_EQ(shortNames.shortFor("chapter10002.kel"), "CHAPTE~4.KEL");
    EXPECT_EQ(shortNames.shortFor("chapter19998.kel"), "CH~10000.KEL");
}

TEST_F(LinuxDesktop, TellsWhatCannotBeWritten) {
    LinuxRuntime runtime(nullptr);
    const auto open = [&](const char* path) {
        return errorOf([&] { runtime.vbaFileOpen(path, Runtime::OpenMode::Output); });
    };
    EXPECT_TRUE(runtime.TempPath().ends_with("\\nwbw"));
    write(c / "victim", "safe");
    EXPECT_EQ(runtime.rtcDir("c:\\victim\\.") + runtime.rtcDir("c:\\victim/."), "");
    fs::create_symlink("victim", c / "planted");
    mkfifo((c / "pipe").c_str(), 0600);
    EXPECT_NE(open("c:\\planted"), "");
    EXPECT_EQ(open("c:\\pipe"), "Cannot open c:\\pipe: No such device or address");
    EXPECT_EQ(open("q:\\x"), "Cannot open q:\\x: No such drive");
    EXPECT_EQ(open("c:\\y"), "");
    runtime.vbaPrintFile("kept");
    runtime.vbaFileFlush();
    EXPECT_EQ(flushed, 6);
    runtime.vbaFileClose();
    runtime.vbaNameFile("c:\\y", "c:\\x");
    EXPECT_EQ(errorOf([&] { runtime.vbaNameFile("c:\\x", "c:\\victim"); }),
              "Cannot rename c:\\x to c:\\victim: File exists");
    EXPECT_EQ(contentOf(c / "victim") + contentOf(c / "x"), "safekept\r\n");

    EXPECT_EQ(errorOf([&] { runtime.rtcFileDateTime("c:\\none"); }),
              "Cannot find c:\\none: No such file or directory");
    EXPECT_EQ(errorOf([&] { runtime.rtcDir("c:\\lost"); }),
              "Cannot look up c:\\lost: Stale file handle");
    fs::create_directories(home / "nwbw/any.ini");
    EXPECT_EQ(
        errorOf([&] { runtime.rtcSaveSetting("any", "", "", ""); }),
        "Cannot write " + (home / "nwbw/any.ini").string() + ": the settings could not be stored");
    const std::function<void()> writes[] = {
        [&] { runtime.vbaFileFlush(); },
        [&] { runtime.vbaFileClose(); },
        [&] { runtime.vbaPrintFile(std::string(99'999, 'x')); },
    };
    for (const auto& work : writes) {
        EXPECT_EQ(open("z:\\dev\\full"), "");
        runtime.vbaPrintFile("x");
        EXPECT_EQ(errorOf(work), "Cannot write z:\\dev\\full: No space left on device");
    }
}
