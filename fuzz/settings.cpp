// Any settings file gives usable settings, and a save that is loaded and saved again gives the same
// file.

#include <algorithm>
#include <map>
#include <string>

#include "check.h"
#include "core/field_reader.h"
#include "core/settings_file.h"
#include "platform/stubs/stubs.h"

namespace {

using fuzz::check;

/// A platform that has nothing but files, held in memory.
class Files : public stubs::StubRuntime {
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

void load(core::Program& program) {
    core::LoadSettings(program);
    const core::AppState& state = program.state;
    for (const auto& flag :
         {state.EditHidden, state.CompileHidden, state.PlayHidden, state.ExtractHidden})
        check(flag.value_or(0) >> 1 == 0, "a box is ticked or not");
    check(state.PlayerChoice >= 0 && state.PlayerChoice <= 2, "there is such a player");
    check(state.StartTab >= 1 && state.StartTab <= 4, "there is such a tab");
    check(state.IncludeFolders.back().empty(), "the list of folders has an end");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    stubs::StubToolkit toolkit;
    forms::Application application(toolkit, nullptr);
    Files runtime;
    core::Program program{runtime};

    const unsigned kind = fuzz::choice(input);
    const char* names[] = {"c:\\nwbw.ini", "c:\\kelmcons.ini", "c:\\~nwbwini.tmp"};
    runtime.files[names[kind % 3]] = input;
    if ((kind & 4) != 0) runtime.files["c:\\nwbwini.bkp"] = input;
    load(program);
    if ((kind & 8) != 0)  // typed by the user
        program.state.CompilerPath = program.state.IncludeFolders[0] = input;

    core::SaveSettings(program);
    if (kind % 3 == 2) {
        const auto isInput = [&](const auto& file) { return file.second == input; };
        check(std::ranges::any_of(runtime.files, isInput), "what was not read is kept");
    }
    const std::string saved = runtime.files.at(names[0]);
    load(program);
    core::SaveSettings(program);
    check(runtime.files.at(names[0]) == saved, "a second save gives the same file");
    return 0;
}
