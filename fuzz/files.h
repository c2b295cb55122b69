#pragma once

#include <map>
#include <string>

#include "check.h"
#include "core/field_reader.h"
#include "core/runtime.h"
#include "forms/application.h"

namespace fuzz {

/// A platform that knows nothing but files, held in memory.
class Files : public core::Runtime {
  public:
    std::map<std::string, std::string> files;

    std::string AppPath() override { return "c:"; }
    std::string TempPath() override { return "c:"; }
    std::string rtcDir(const std::string& path) override {
        return files.contains(path) ? path : "";
    }
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string&) override {
        return {};
    }
    void vbaFileOpen(const std::string& path, OpenMode mode) override {
        open_ = path;
        if (mode == OpenMode::Output) files[path].clear();
        reader_ = core::FieldReader(files.at(path));
    }
    void vbaFileClose() override {}
    std::string vbaInputFile() override { return reader_.next(); }
    bool rtcEndOfFile() override { return reader_.atEnd(); }
    void vbaPrintFile(const std::string& text) override { files[open_] += text + "\r\n"; }
    void vbaFileFlush() override {}
    void rtcKillFiles(const std::string& path) override { files.erase(path); }
    void vbaNameFile(const std::string& from, const std::string& to) override {
        check(files.contains(from) && !files.contains(to), "a rename that can be done");
        files[to] = files.extract(from).mapped();
    }
    Answer rtcMsgBox(const std::string& text, int flags, const std::string&) override {
        check(flags == okOnly && !text.empty(), "no error, and a message that says something");
        return Answer::Ok;
    }
    void rtcShell(const std::string&, int) override {}
    std::string rtcGetSetting(const std::string&, const std::string&, const std::string&,
                              const std::string&) override {
        return "";
    }
    void rtcSaveSetting(const std::string&, const std::string&, const std::string&,
                        const std::string&) override {}
    std::string GetShortPathName(const std::string&) override { return ""; }
    std::vector<std::string> drives() override { return {}; }
    std::string currentFolder() override { return ""; }
    std::vector<std::string> folders(const std::string&) override { return {}; }
    std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t, const std::string&,
                                            std::uint32_t) override {
        return {};
    }
    std::optional<RegistryValue> RegQueryValueEx(RegistryKey, const std::string&) override {
        return {};
    }
    void RegCloseKey(RegistryKey) override {}

  private:
    std::string open_;
    core::FieldReader reader_{""};
};

/// A toolkit of a program that opens no window.
class NoToolkit : public forms::Toolkit {
  public:
    void build(forms::Form&) override {}
    std::string chooseFile(forms::Form&, const forms::FileQuestion&) override { return ""; }
    void quit() override {}
};

}  // namespace fuzz
