#pragma once

#include <QFile>
#include <QObject>
#include <string>

#include "core/common_runtime.h"
#include "platform/linux/disk/files.h"
#include "platform/linux/disk/windows_disk.h"
#include "platform/linux/launch/launcher.h"
#include "platform/linux/settings_store.h"

namespace platform {

/// The runtime on a system with a Unix in it: drives emulated on the host's files.
class LinuxRuntime : public core::CommonRuntime {
  public:
    /// `programFolder` contains nwbw and nwbw-batch.
    explicit LinuxRuntime(MessageBox messageBox, const HostPath& programFolder = folderOfProgram());

    std::string AppPath() override { return appPath_; }
    std::string TempPath() override;

    std::string rtcDir(const std::string& path) override;
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) override;

    void vbaFileFlush() override;
    void rtcKillFiles(const std::string& path) override;
    void vbaNameFile(const std::string& from, const std::string& to) override;

    void rtcShell(const std::string& command, int windowStyle) override;

    std::string rtcGetSetting(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& byDefault) override {
        return store_.value(application, section, key, byDefault);
    }
    void rtcSaveSetting(const std::string& application, const std::string& section,
                        const std::string& key, const std::string& value) override {
        store_.setValue(application, section, key, value);
    }

    std::string GetShortPathName(const std::string& path) override { return disk_.shortPath(path); }

    std::vector<std::string> drives() override;
    std::string currentFolder() override;
    std::vector<std::string> folders(const std::string& path) override;

    // This system has no registry.
    std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t, const std::string&,
                                            std::uint32_t) override {
        return {};
    }
    std::optional<RegistryValue> RegQueryValueEx(RegistryKey, const std::string&) override {
        return {};
    }
    void RegCloseKey(RegistryKey) override {}

    /// Returns the disk that converts paths, for file dialogs that show host paths.
    WindowsDisk& disk() { return disk_; }

  protected:
    std::string readFile(const std::string& path) override;
    void openOutput(const std::string& path) override;
    [[nodiscard]] bool isOutputOpen() const override { return output_.isOpen(); }
    void writeOutput(const std::string& text) override;
    void closeOutput() override;

  private:
    HostPath hostPath(const std::string& doing, const std::string& path);
    /// The same, but for a file that was written and could not take its name, where it is.
    HostPath writtenPath(const std::string& doing, const std::string& path);
    void writeOut();
    [[noreturn]] void failToWrite();
    [[noreturn]] void failToWrite(const std::string& reason);
    void startInTerminal(const std::vector<std::string>& words, bool maximised);
    void startScript(const std::string& path, bool maximised);

    SettingsStore store_;
    WindowsDisk disk_{Drives::ofUser()};
    Launcher launcher_{disk_};
    QObject programs_;  ///< owns what watches the started programs
    HostPath programFolder_;
    std::string appPath_;
    QFile output_;
    HostPath outputFile_{"/"};  ///< the file open for output
    /// The file written in its place. A file that exists is replaced only when the new
    /// one is whole: it may be another user's, and a terminal may be reading it.
    HostPath writing_{"/"};
};

}  // namespace platform
