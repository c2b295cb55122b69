#pragma once

#include <map>
#include <string>

#include "check.h"
#include "core/field_reader.h"
#include "platform/none/no_platform.h"

namespace fuzz {

/// A platform that knows nothing but files, held in memory.
class Files : public platform::NoRuntime {
  public:
    std::map<std::string, std::string> files;

    std::string AppPath() override { return "c:"; }
    std::string rtcDir(const std::string& path) override {
        return files.contains(path) ? path : "";
    }
    void vbaFileOpen(const std::string& path, OpenMode mode) override {
        open_ = path;
        if (mode == OpenMode::Output) files[path].clear();
        reader_ = core::FieldReader(files.at(path));
    }
    std::string vbaInputFile() override { return reader_.next(); }
    bool rtcEndOfFile() override { return reader_.atEnd(); }
    void vbaPrintFile(const std::string& text) override { files[open_] += text + "\r\n"; }
    void rtcKillFiles(const std::string& path) override { files.erase(path); }
    void vbaNameFile(const std::string& from, const std::string& to) override {
        check(files.contains(from) && !files.contains(to), "a rename that can be done");
        files[to] = files.extract(from).mapped();
    }
    Answer rtcMsgBox(const std::string& text, int flags, const std::string&) override {
        check(flags == okOnly && !text.empty(), "no error, and a message that says something");
        return Answer::Ok;
    }

  private:
    std::string open_;
    core::FieldReader reader_{""};
};

}  // namespace fuzz
