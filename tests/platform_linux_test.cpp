#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "linux_desktop.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/linux_runtime.h"

using namespace platform;
using core::Runtime;

namespace {

class Disk : public LinuxDesktop {
  protected:
    /// Makes the folder look unchanged for long, so that its listing is kept.
    static void age(const fs::path& folder) {
        fs::last_write_time(folder, fs::file_time_type::clock::now() - std::chrono::hours(1));
    }

    WindowsDisk disk{Drives::ofUser()};
};

}  // namespace

TEST_F(Disk, MapsPathsToTheHost) {
    write(c / "My Games/Wizardquest.kel");
    write(c / "My Games/Élan Vital.kel");
    write(c / "My Games/caf\xe9.kel");
    write(d / "cave.kel");
    fs::current_path(c / "My Games");
    const std::pair<const char*, fs::path> cases[] = {
        {"c:\\my games\\WIZARDQUEST.kel", c / "My Games/Wizardquest.kel"},
        {"C:/MYGAME~1/wizard~1.KEL", c / "My Games/Wizardquest.kel"},
        {"élan vital.KEL", c / "My Games/Élan Vital.kel"},
        {"c:new.kel", c / "My Games/new.kel"},
        {"CAF\xe9.kel", c / "My Games/caf\xe9.kel"},
        {"caf\xea.kel", c / "My Games/caf\xea.kel"},
        {"WIZARD~1.lis", c / "My Games/Wizardquest.lis"},
        {"\\x.kel", c / "x.kel"},
        {"d:cave.kel", d / "cave.kel"},
        {"c:\\..\\..\\My Games\\.\\x", c / "My Games/x"},
        {"..\\..\\..\\x", c / "x"},
        {"c:\\nothing\\..\\x", c / "x"},
        {"z:\\", "/"},
        {d.c_str(), d},
        {"q:\\x", ""},
        {"é:\\x", c / "My Games/é:/x"},
        {"", ""},
    };
    for (const auto& [path, host] : cases)
        EXPECT_EQ(disk.toHost(path), host.string()) << path;
    EXPECT_EQ(disk.toHost(std::string("c:\\cave\0.kel", 12)), "");
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
    };
    for (const auto& [host, path] : cases)
        EXPECT_EQ(disk.toWindows(host), path) << host;
    EXPECT_TRUE(disk.toWindows(d.string() + "2").starts_with("z:\\"));
    EXPECT_EQ(disk.toHost("c:\\a_b~1\\x_del_~1.kel"), c / "a\\b/x\ndel\".kel");
}

TEST_F(LinuxDesktop, TakesTheDrivesOfTheWinePrefixOrMakesItsOwn) {
    fs::create_directories(home / ".wine/dosdevices");
    fs::create_directory_symlink(d, home / ".wine/dosdevices/w:");
    EXPECT_EQ(Drives::ofUser().folderOf('W'), d.string());
    setenv("WINEPREFIX", (home / "none").c_str(), 1);
    EXPECT_EQ(Drives::ofUser().folderOf('c'), c.string());
    fs::remove_all(home / "nwbw");
    const Drives fresh = Drives::ofUser();
    EXPECT_EQ(fresh.folderOf('c'), c.string());
    EXPECT_EQ(fresh.folderOf('z'), "");
}

TEST_F(Disk, GivesShortPaths) {
    write(c / "my games/wizardquest.kel");
    write(c / "my games/wizardquest.lis");
    write(c / "my games/wizards.of.oz");
    write(c / "my games/été en forêt.txt");
    write(c / "kelm/standard library/x");
    write(d / "My Games/thelongadventure.kelm");
    write(d / "My Games/adventure.kcd");
    const std::pair<const char*, const char*> cases[] = {
        {"c:\\my games\\wizardquest.kel", "c:\\MYGAME~1\\WIZARD~1.KEL"},
        {"C:\\MY GAMES\\wizardquest.LIS", "C:\\MYGAME~1\\WIZARD~1.LIS"},
        {"c:\\mygame~1\\wizard~2.oz", "c:\\MYGAME~1\\WIZARD~2.OZ"},
        {"my games\\été en forêt.txt", "MYGAME~1\\_T_ENF~1.TXT"},
        {"c:\\KELM\\standard library\\", "c:\\kelm\\STANDA~1\\"},
        {"c:\\kelm\\..\\kelm", "c:\\kelm\\..\\kelm"},
        {"D:\\My Games\\thelongadventure.kelm", "D:\\MYGAME~1\\THELON~1.KEL"},
        {"d:\\my games\\adventure.kcd", "d:\\MYGAME~1\\ADVENT~1.KCD"},
        {"c:\\", "c:\\"},
        {"c:\\my games\\wizardquest.kcd", ""},
        {"c:\\my games\\wizardquest.kel\\", ""},
        {"c:\\my games\\wizardquest.kel\\x", ""},
        {"", ""},
    };
    for (const auto& [path, shortPath] : cases)
        EXPECT_EQ(disk.shortPath(path), shortPath) << path;
}

TEST_F(Disk, SeesEveryChangeOfAKeptFolder) {
    const fs::path source = c / "games/wizardquest.kel";
    for (int round = 0; round < 3; ++round) {
        write(source);
        age(c / "games");
        EXPECT_EQ(disk.shortPath("c:\\games\\wizardquest.kel"), "c:\\games\\WIZARD~1.KEL");
        EXPECT_EQ(disk.shortPath("c:\\games\\wizardquest.kel"), "c:\\games\\WIZARD~1.KEL");
        fs::remove(source);
        EXPECT_EQ(disk.shortPath("c:\\games\\wizardquest.kel"), "");
        write(source);
        EXPECT_EQ(disk.shortPath("c:\\games\\wizardquest.kel"), "c:\\games\\WIZARD~1.KEL");
    }
}

TEST(ShortNames, KeepToEightCharactersWhenManyCompete) {
    std::vector<std::string> names;
    for (int i = 10'000; i < 20'200; ++i)
        names.push_back("chapter" + std::to_string(i) + ".kel");
    names.push_back("chapte~3.txt");
    const ShortNames shortNames(names, [](const auto&) { return 0; });
    const std::pair<int, const char*> cases[] = {
        {1, "CHAPTE~2.KEL"}, {2, "CHAPTE~4.KEL"}, {98, "CHAP~100.KEL"}, {9998, "CH~10000.KEL"}};
    for (const auto& [index, shortName] : cases)
        EXPECT_EQ(shortNames.shortFor(names[index]), shortName);
}

TEST_F(LinuxDesktop, TellsWhatCannotBeWritten) {
    LinuxRuntime runtime(nullptr);
    const auto open = [&](const char* path) {
        return errorOf([&] { runtime.vbaFileOpen(path, Runtime::OpenMode::Output); });
    };
    EXPECT_EQ(open("c:\\none\\x"), "Cannot open c:\\none\\x: No such file or directory");
    EXPECT_EQ(open("q:\\x"), "Cannot open q:\\x: No such drive");
    write(c / "victim", "safe");
    EXPECT_EQ(runtime.rtcDir("c:\\victim\\.") + runtime.rtcDir("c:\\victim/."), "");
    fs::create_symlink("victim", c / "planted");
    EXPECT_NE(open("c:\\planted"), "");
    EXPECT_EQ(contentOf(c / "victim"), "safe");

    const std::string full = "Cannot write z:\\dev\\full: No space left on device";
    EXPECT_EQ(open("z:\\dev\\full"), "");
    runtime.vbaPrintFile("x");
    EXPECT_EQ(errorOf([&] { runtime.vbaFileFlush(); }), full);
    EXPECT_EQ(open("z:\\dev\\full"), "");
    runtime.vbaPrintFile("x");
    EXPECT_EQ(errorOf([&] { runtime.vbaFileClose(); }), full);
    EXPECT_EQ(open("z:\\dev\\full"), "");
    EXPECT_EQ(errorOf([&] { runtime.vbaPrintFile(std::string(99'999, 'x')); }), full);
    mkfifo((c / "pipe").c_str(), 0600);
    EXPECT_EQ(open("c:\\pipe"), "Cannot open c:\\pipe: No such device or address");
    EXPECT_EQ(open("c:\\x"), "");
}

TEST(DesktopEntry, ReplacesFieldCodes) {
    using Words = std::vector<std::string>;
    const std::pair<const char*, Words> cases[] = {
        {"gedit %U", {"gedit", "file:///a%20b"}},
        {"kate -b %f", {"kate", "-b", "/a b"}},
        {"\"/opt/my \\\"editor\\\"\" --name %c %% %F",
         {"/opt/my \"editor\"", "--name", "%", "/a b"}},
        {"ed", {"ed", "/a b"}},
    };
    for (const auto& [exec, words] : cases)
        EXPECT_EQ(execWords(exec, "/a b"), words) << exec;
    EXPECT_EQ(execWords("gedit %u", "/\xe9%#"), (Words{"gedit", "file:///%E9%25%23"}));
    EXPECT_EQ(execWords("gedit %U", ""), Words{"gedit"});
}
