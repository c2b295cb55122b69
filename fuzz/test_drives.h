#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/linux/disk/windows_disk.h"

namespace fuzz {

namespace fs = std::filesystem;

/// Drives c: and d: in a temporary folder, in memory if possible. The current folder is c:\My
/// Games, and the search path has the folder "bin" beside the drives.
class TestDrives {
  public:
    /// Creates the files, each a program, in drive_c, in drive_d or beside them.
    explicit TestDrives(const std::vector<const char*>& files)
        : home(filled(files)), disk(platform::Drives(platform::HostPath(home))) {
        for (const char* name :
             {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
            setenv(name, home.c_str(), 1);
        setenv("PATH", (bin + ":.:").c_str(), 1);
        setenv("EDITOR", "ed -w", 1);
        unsetenv("VISUAL");
        fs::current_path(c / "My Games");
    }
    ~TestDrives() {
        fs::current_path("/");
        fs::remove_all(home);
    }
    TestDrives(const TestDrives&) = delete;
    TestDrives& operator=(const TestDrives&) = delete;

    const fs::path home;
    const fs::path c = home / "drive_c";
    const fs::path d = home / "drive_d";
    const std::string bin = home / "bin/";
    platform::WindowsDisk disk;

  private:
    static fs::path filled(const std::vector<const char*>& files) {
        const fs::path memory = "/dev/shm";
        const bool usable = access(memory.c_str(), W_OK) == 0;
        std::string name = (usable ? memory : fs::temp_directory_path()) / "nwbw-fuzz-XXXXXX";
        const fs::path home = fs::canonical(mkdtemp(name.data()));

        fs::create_directories(home / "dosdevices");
        fs::create_directory_symlink("../drive_c", home / "dosdevices/c:");
        fs::create_directory_symlink("../drive_d", home / "dosdevices/d:");
        for (const fs::path file : files) {
            fs::create_directories((home / file).parent_path());
            std::ofstream(home / file) << "#!/bin/sh\n";
            fs::permissions(home / file, fs::perms::owner_all);
        }
        // The listing of a folder is cached only if it has not changed for a while.
        const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
        for (const auto& entry : fs::recursive_directory_iterator(home))
            if (entry.is_directory()) fs::last_write_time(entry, longAgo);
        return home;
    }
};

}  // namespace fuzz
