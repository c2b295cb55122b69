#pragma once

#include <string>

#include "platform/common/common_runtime.h"
#include "platform/windows/file.h"

namespace platform {

/// What the program asks of its platform, on Windows.
class WindowsRuntime : public CommonRuntime {
  public:
    /// Has the system report critical errors of this process to the operations alone.
    explicit WindowsRuntime(MessageBox messageBox);

    std::string AppPath() override;
    std::string TempPath() override;

    std::string rtcDir(const std::string& path) override;
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) override;

    void vbaFileFlush() override;
    void rtcKillFiles(const std::string& path) override;
    void vbaNameFile(const std::string& from, const std::string& to) override;

    void rtcShell(const std::string& command, int windowStyle) override;

    std::string rtcGetSetting(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& byDefault) override;
    void rtcSaveSetting(const std::string& application, const std::string& section,
                        const std::string& key, const std::string& value) override;

    /// On a volume that keeps no short names, this is the path as it stands.
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
    std::string printed_;  ///< and not written yet, so that no file holds half of it
};

}  // namespace platform
