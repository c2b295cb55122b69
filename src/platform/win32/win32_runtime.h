#pragma once

#include <functional>
#include <string>

#include "core/field_reader.h"
#include "core/runtime.h"
#include "platform/win32/file.h"

namespace platform {

/// What the program asks of its platform, on Windows.
class Win32Runtime : public core::Runtime {
  public:
    /// Shows a modal box; its title is never empty.
    using MessageBox =
        std::function<Answer(const std::string& text, int flags, const std::string& title)>;

    /// Has the system report critical errors of this process to the operations alone.
    explicit Win32Runtime(MessageBox messageBox);

    std::string AppPath() override;
    std::string TempPath() override;

    std::string rtcDir(const std::string& path) override;
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) override;

    void vbaFileOpen(const std::string& path, OpenMode mode) override;
    void vbaFileClose() override;
    std::string vbaInputFile() override { return input_.next(); }
    bool rtcEndOfFile() override { return input_.atEnd(); }
    void vbaPrintFile(const std::string& text) override;
    void vbaFileFlush() override;
    void rtcKillFiles(const std::string& path) override;
    void vbaNameFile(const std::string& from, const std::string& to) override;

    Answer rtcMsgBox(const std::string& text, int flags, const std::string& title) override;
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

  private:
    MessageBox messageBox_;
    core::FieldReader input_{""};
    Handle output_;
    std::string outputPath_;
};

}  // namespace platform
