#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "helpers.h"

/// A temporary home with drives c:, d: and z:. The current folder is the root of c:.
class LinuxDesktop : public testing::Test {
  protected:
    LinuxDesktop() {
        // Children that read standard input get end of input, also when it is a terminal.
        if (std::freopen("/dev/null", "r", stdin) == nullptr) ADD_FAILURE() << "no /dev/null";
        fs::create_directories(links);
        fs::create_directories(c);
        fs::create_directories(d);
        fs::create_directory_symlink("../drive_c", links / "c:");
        fs::create_directory_symlink(d, links / "d:");
        fs::create_directory_symlink("/", links / "z:");
        for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
            setenv(name, home.c_str(), 1);
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_CACHE_HOME"})
            setenv(name, (home / "set").c_str(), 1);
        for (const char* name : {"WINEPREFIX", "TERMINAL", "VISUAL", "EDITOR"})
            setenv(name, "", 1);  // which is as good as none
        setenv("NWBW_ECHO", (home / "echo").c_str(), 1);
        fs::current_path(c);
    }
    ~LinuxDesktop() override {
        setenv("PATH", path.c_str(), 1);
        fs::current_path(folderBefore);
        fs::remove_all(home);
    }

    static void program(const fs::path& file, const std::string& start = "#!/bin/sh\n") {
        write(file, start);
        fs::permissions(file, fs::perms::owner_all);
    }

    const fs::path folderBefore = fs::current_path();
    const std::string path = std::getenv("PATH");
    const fs::path home = [] {
        std::string name = fs::temp_directory_path() / "nwbw-test-XXXXXX";
        return fs::canonical(mkdtemp(name.data()));
    }();
    const fs::path links = home / "nwbw/dosdevices";
    const fs::path c = home / "nwbw/drive_c";
    const fs::path d = home / "stories";
};
