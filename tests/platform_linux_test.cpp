#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ranges>
#include <regex>

#include "linux_desktop.h"
#include "platform/linux/linux_runtime.h"

using namespace platform;
using core::Runtime;
using namespace std::literals;

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

/// Replaces the system's: behaves as if another user owned the file "theirs" in a sticky folder.
extern "C" int rename(const char* from, const char* to) noexcept {
    if (!std::string_view(to).ends_with("/theirs")) return renameat(AT_FDCWD, from, AT_FDCWD, to);
    errno = EPERM;
    return -1;
}

/// How a look-up of the file "lost" fails.
static int lookUpError = ESTALE;

extern "C" int stat(const char* path, struct stat* state) noexcept {
    if (!std::string_view(path).ends_with("/lost")) return fstatat(AT_FDCWD, path, state, 0);
    errno = lookUpError;
    return -1;
}

TEST_F(LinuxDesktop, EntersFoldersThatOnlyOthersMayList) {
    WindowsDisk disk{Drives::ofUser()};
    write(c / "My Games/Wizardquest.kel");
    const fs::path folders[] = {c / "My Games", c, links, c.parent_path(), home};
    // To another user than root.
    if (getuid() == 0) fs::permissions(home.parent_path(), fs::perms(0011), fs::perm_options::add);
    for (const fs::path& folder : folders)
        fs::permissions(folder, fs::perms(0111));
    EXPECT_EQ(seteuid(getuid() == 0 ? 1 : getuid()), 0);
    for (const char* path : {"c:\\My Games\\Wizardquest.kel", "c:\\My Games\\NEW"}) {
        EXPECT_EQ(disk.toHost(path), HostPath(c / "My Games" / (path + 12)));
        EXPECT_EQ(disk.shortPath(path), path[12] == 'N' ? "" : path);
    }
    EXPECT_EQ(seteuid(getuid()), 0);
    for (const fs::path& folder : std::views::reverse(folders))
        fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(LinuxDesktop, TakesTheDrivesOfTheWinePrefixOrMakesItsOwn) {
    fs::create_directories(home / ".wine/dosdevices");
    const Drives wine = Drives::ofUser();
    EXPECT_TRUE(wine.names().empty());
    fs::create_directory_symlink(d, home / ".wine/dosdevices/W:");  // after the start
    EXPECT_EQ(wine.folderOf('w'), HostPath(d));
    EXPECT_EQ(wine.names(), std::vector{"w:"s});
    EXPECT_EQ(wine.prefix(), HostPath(home / ".wine"));
    setenv("WINEPREFIX", (home / "none").c_str(), 1);
    EXPECT_EQ(Drives::ofUser().names(), (std::vector<std::string>{"c:", "d:", "z:"}));
    setenv("XDG_DATA_HOME", "/dev/null", 1);
    EXPECT_TRUE(Drives::ofUser().names().empty());
    setenv("XDG_DATA_HOME", "nwbw", 1);
    EXPECT_EQ(Drives::ofUser().prefix(), HostPath(home / ".local/share/nwbw"));
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    fs::remove_all(home / "nwbw");
    EXPECT_EQ(LinuxRuntime(nullptr).currentFolder(), "z:\\") << "the current one is gone";
    const Drives again = Drives::ofUser();
    EXPECT_EQ(again.folderOf('c'), HostPath(c));
    EXPECT_EQ(again.folderOf('z'), HostPath("/"));
}

TEST_F(LinuxDesktop, TellsWhatCannotBeWritten) {
    LinuxRuntime runtime(nullptr);
    const auto open = [&](const char* path) {
        return errorOf([&] { runtime.vbaFileOpen(path, Runtime::OpenMode::Output); });
    };
    EXPECT_TRUE(runtime.TempPath().ends_with("\\set\\nwbw"));
    EXPECT_TRUE(runtime.folders(runtime.TempPath()).empty());
    write(c / "victim", "safe");
    EXPECT_EQ(runtime.rtcDir("c:\\victim\\.") + runtime.rtcDir("c:\\victim/."), "");
    fs::create_symlink("victim", c / "planted");
    mkfifo((c / "pipe").c_str(), 0600);
    write(c / "old", "old");
    fs::permissions(c / "old", fs::perms::all);
    for (const char* name : {"planted", "pipe", "old", "y"}) {
        flushed = 0;
        EXPECT_EQ(open((std::string("c:\\") + name).c_str()), "");
        runtime.vbaPrintFile("kept");
        runtime.vbaFileFlush();
        EXPECT_EQ(flushed, 6);
        EXPECT_EQ(contentOf(c / "old").find("kept"), std::string::npos) << "replaced when whole";
        runtime.vbaFileClose();
        EXPECT_EQ(contentOf(c / name), "kept\r\n") << name;
        EXPECT_EQ(fs::symlink_status(c / name).permissions() & fs::perms::others_all,
                  fs::perms::others_read);
        fs::remove(c / name);
    }
    EXPECT_EQ(open("q:\\x"), "Cannot open q:\\x: No such drive");
    const auto read = [&] { runtime.vbaFileOpen("z:\\proc\\self\\mem", Runtime::OpenMode::Input); };
    EXPECT_EQ(errorOf(read), "Cannot read z:\\proc\\self\\mem: Input/output error");
    fs::create_directory(c / "taken");
    EXPECT_EQ(open("c:\\taken"), "");
    EXPECT_EQ(errorOf([&] { runtime.vbaFileClose(); }), "Cannot write c:\\taken: Is a directory");
    write(c / "theirs", "theirs");
    for (const bool renamed : {true, false}) {
        EXPECT_EQ(open("c:\\theirs"), "");
        runtime.vbaPrintFile("kept");
        runtime.vbaFileClose();
        renamed ? runtime.vbaNameFile("c:\\theirs", "c:\\y") : runtime.rtcKillFiles("c:\\theirs");
        EXPECT_EQ(contentOf(c / "theirs"), "theirs");
    }
    runtime.vbaNameFile("c:\\y", "c:\\x");
    EXPECT_EQ(errorOf([&] { runtime.vbaNameFile("c:\\x", "c:\\victim"); }),
              "Cannot rename c:\\x to c:\\victim: File exists");
    EXPECT_EQ(contentOf(c / "victim") + contentOf(c / "x"), "safekept\r\n");
    write(c / "X", "twin");
    runtime.vbaNameFile("c:\\x", "c:\\z");
    runtime.vbaNameFile("c:\\z", "c:\\x");
    EXPECT_EQ(contentOf(c / "X") + contentOf(c / "x"), "twinkept\r\n");
    runtime.rtcKillFiles("c:\\x");
    EXPECT_EQ(contentOf(c / "X"), "twin");

    const auto lookUp = [&] { runtime.rtcDir("c:\\lost"); };
    for (const int error : {ENOENT, ENOTDIR, ENAMETOOLONG}) {
        lookUpError = error;
        EXPECT_EQ(errorOf(lookUp), "");
    }
    for (const int error : {EACCES, ELOOP, EINTR, ENOMEM, ENOTCONN, ETIMEDOUT, EHOSTDOWN}) {
        lookUpError = error;
        EXPECT_EQ(errorOf(lookUp), "Cannot look up c:\\lost: "s + std::strerror(error));
    }
    rlimit files = {};
    getrlimit(RLIMIT_NOFILE, &files);
    const rlimit none{0, files.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    EXPECT_EQ(errorOf([&] { runtime.rtcDir("c:\\none"); }),
              "Cannot look up c:\\none: Too many open files");
    setrlimit(RLIMIT_NOFILE, &files);
    fs::create_directories(home / "set/nwbw/any.json");
    testing::internal::CaptureStderr();
    LinuxRuntime(nullptr).rtcGetSetting("any", "", "", "");
    LinuxRuntime(nullptr).rtcSaveSetting("any", "", "", "");
    EXPECT_TRUE(std::regex_match(
        testing::internal::GetCapturedStderr(),
        std::regex("Cannot write " + (home / "set/nwbw/any.json").string() + ": .*\n")));
    const std::function<void()> writes[] = {
        [&] { runtime.vbaFileFlush(); },
        [&] { runtime.vbaFileClose(); },
        [&] { runtime.vbaPrintFile(std::string(99'999, 'x')); },
    };
    std::signal(SIGXFSZ, SIG_IGN);
    for (const auto& work : writes) {
        EXPECT_EQ(open("c:\\x"), "");
        runtime.vbaPrintFile("x");
        const rlimit all = {RLIM_INFINITY, RLIM_INFINITY}, none = {0, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &none);
        const std::string error = errorOf(work);
        setrlimit(RLIMIT_FSIZE, &all);
        EXPECT_EQ(error, "Cannot write c:\\x: File too large");
    }
    EXPECT_EQ(contentOf(c / "X"), "twin");
    runtime.rtcKillFiles("c:\\x");
    EXPECT_EQ(std::distance(fs::directory_iterator(c), {}), 3) << "taken, theirs and victim";
}
