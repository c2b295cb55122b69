#pragma once

#include <string>

#include "core/common_runtime.h"
#include "platform/windows/file.h"

namespace platform {

/// The runtime on Windows.
class WindowsRuntime : public core::CommonRuntime {
  public:
    /// Makes critical errors of the system fail the operation instead of showing a box.
    explicit WindowsRuntime(MessageBox messageBox);

    std::string AppPath() override;
    std::string TempPath() override;

    std::string rtcDir(const std::string& path) override;
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) override;

    void vbaFileFlush() override;
    void rtcKillFiles(const std::string& path) override;
    void vbaNameFile(const std::string& from, const std::string& to) override;

    /// Shows a message if the command is refused.
    void rtcShell(const std::string& command, int windowStyle) override;

    std::string rtcGetSetting(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& byDefault) override;
    void rtcSaveSetting(const std::string& application, const std::string& section,
                        const std::string& key, const std::string& value) override;

    /// On a volume without short names, returns the path unchanged.
    std::string GetShortPathName(const std::string& path) override;

    std::vector<std::string> drives() override;
    std::string currentFolder() override;
    std::vector<std::string> folders(const std::string& path) override;

    std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t root, const std::string& name,
                                            std::uint32_t access) override;
    std::optional<RegistryValue> RegQueryValueEx(RegistryKey key, const std::string& name) override;
    void RegCloseKey(RegistryKey key) override;

  protected:
    std::string readFile(const std::string& path) override;
    void openOutput(const std::string& path) override;
    [[nodiscard]] bool isOutputOpen() const override { return output_ != nullptr; }
    void writeOutput(const std::string& text) override;
    void closeOutput() override;

  private:
    /// Writes what was printed. Closes the file if that fails.
    void writeOut();

    Handle output_;
    std::string printed_;  ///< not written yet, so that no file contains half of it
};

}  // namespace platform
