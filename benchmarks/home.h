#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace bench {

namespace fs = std::filesystem;

/// A temporary home folder with its own drive c:.
class Home {
  public:
    Home() : folder_(fs::temp_directory_path() / "nwbw-bench-XXXXXX") {
        std::string name = folder_.string();
        folder_ = mkdtemp(name.data());
        fs::create_directories(folder_ / "nwbw/drive_c");
        fs::create_directories(folder_ / "nwbw/dosdevices");
        fs::create_directory_symlink("../drive_c", folder_ / "nwbw/dosdevices/c:");
        enter();
    }
    ~Home() { fs::remove_all(folder_); }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    /// Makes it the home of programs spawned from now on.
    void enter() const {
        for (const char* variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            setenv(variable, folder_.c_str(), 1);
    }
    [[nodiscard]] const fs::path& folder() const { return folder_; }
    [[nodiscard]] fs::path driveC() const { return folder_ / "nwbw/drive_c"; }

  private:
    fs::path folder_;
};

}  // namespace bench
