#pragma once

#include "core/runtime.h"
#include "forms/application.h"

namespace stubs {

/// A runtime that does nothing, for programs that only need the forms. A new platform can start
/// from a copy of it.
class StubRuntime : public core::Runtime {
  public:
    std::string AppPath() override { return {}; }
    std::string TempPath() override { return {}; }
    std::string currentFolder() override { return {}; }
    std::vector<std::string> drives() override { return {}; }
    std::vector<std::string> folders(const std::string&) override { return {}; }
    std::string rtcDir(const std::string&) override { return {}; }
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string&) override {
        return {};
    }
    void vbaFileOpen(const std::string&, OpenMode) override {}
    void vbaFileClose() override {}
    std::string vbaInputFile() override { return {}; }
    bool rtcEndOfFile() override { return true; }
    void vbaPrintFile(const std::string&) override {}
    void vbaFileFlush() override {}
    void rtcKillFiles(const std::string&) override {}
    void vbaNameFile(const std::string&, const std::string&) override {}
    Answer rtcMsgBox(const std::string&, int, const std::string&) override { return Answer::Ok; }
    void rtcShell(const std::string&, int) override {}
    std::string rtcGetSetting(const std::string&, const std::string&, const std::string&,
                              const std::string&) override {
        return {};
    }
    void rtcSaveSetting(const std::string&, const std::string&, const std::string&,
                        const std::string&) override {}
    std::string GetShortPathName(const std::string&) override { return {}; }
    std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t, const std::string&,
                                            std::uint32_t) override {
        return {};
    }
    std::optional<RegistryValue> RegQueryValueEx(RegistryKey, const std::string&) override {
        return {};
    }
    void RegCloseKey(RegistryKey) override {}
};

/// A toolkit that creates no windows.
class StubToolkit : public forms::Toolkit {
  public:
    void build(forms::Form&) override {}
    std::string chooseFile(forms::Form&, const forms::FileQuestion&) override { return {}; }
    void quit() override {}
};

}  // namespace stubs
