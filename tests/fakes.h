#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "agreed.h"
#include "console/frm_console.h"
#include "console/workbench.h"
#include "core/common_runtime.h"
#include "dialogs/frm_include_add.h"
#include "dialogs/frm_include_list.h"
#include "dialogs/locations_dialog.h"
#include "docs/frm_about.h"
#include "docs/frm_splash.h"
#include "forms/form.h"

/// Stand-ins for the platform and its windows.
namespace fakes {

/// The settings file.
inline const std::string ini = R"(c:\nwb\nwbw.ini)";

/// True if the Help pages explain the message. A variable in the pages matches any text.
inline bool explains(const std::string& message) {
    static const std::regex messages = [] {
        const std::string page = contentOf(fs::path(NWBW_PAGES) / "default.htm");
        const std::regex entry("<dt class=\"message\"[^>]*>(.*?)</dt>\\s*<dd>");
        std::string all;
        for (std::sregex_iterator found(page.begin(), page.end(), entry), end; found != end;
             ++found)
            all += '\n' + (*found)[1].str();
        // Makes one regular expression of them, which matches any text for a variable.
        for (const auto& [html, written] : {std::pair(R"([.()?*+\[\]\\{}|^$])", R"(\$&)"),
                                            {"\n", "|"},
                                            {"<br>", "\r\n"},
                                            {"<var>[^<]*</var>", ".*"},
                                            {"&quot;", "\""},
                                            {"&lt;", "<"},
                                            {"&amp;", "&"}})
            all = std::regex_replace(all, std::regex(html), written);
        return std::regex(all.substr(1));
    }();
    return std::regex_match(message, messages);
}

/// A platform in memory. Records what the program does, gives preset answers, and can fail.
class FakeRuntime : public core::CommonRuntime {
  public:
    FakeRuntime() : CommonRuntime(nullptr) {}

    struct File {
        std::string text;
        int changed = 0;  ///< in seconds
    };
    struct Box {
        std::string text;
        int flags = okOnly;
        std::string title = {};
        bool operator==(const Box&) const = default;
    };
    using Shell = std::pair<int, std::string>;  ///< window style and command
    struct Killed {};
    /// How the text of an exclamation box starts: with a failed operation. A bug
    /// shows no box.
    static inline const std::regex failures{
        "^((rtc|vba)[A-Za-z]+ failed|Cannot [a-z]+ |There is no drive )"};
    /// Compares paths without regard to the case of letters.
    struct PathLess {
        bool operator()(const std::string& one, const std::string& other) const {
            const auto fold = [](unsigned char letter) { return std::tolower(letter); };
            return std::ranges::lexicographical_compare(one, other, {}, fold, fold);
        }
    };
    using Files = std::map<std::string, File, PathLess>;

    Files files;
    std::map<std::string, std::string> shortNames;  ///< of paths that exist
    std::map<std::string, std::string> settings;    ///< by key
    std::map<std::string, std::vector<std::string>> tree = {
        {"c:\\", {"nwb"}}, {"c:\\nwb", {}}, {"c:\\temp", {}}};
    std::map<std::string, std::map<std::string, RegistryValue>> registry;
    std::vector<std::string> driveNames = {"c:", "d:", "e:", "z:"};
    std::string current = "c:\\nwb";  ///< folder
    int keysOpen = 0;
    std::vector<Box> boxes;
    std::vector<Shell> shells;  ///< commands started
    Answer answer = Answer::Yes;
    std::function<void()> whileBoxIsOpen;
    int calls = 0;          ///< file operations so far
    bool readOnly = false;  ///< the program's folder
    int failAt = -1;        ///< the call of this number fails, counted from 1
    int killAt = -1;        ///< before the call of this number the process ends

    /// Returns the boxes shown since the last call.
    std::vector<Box> newBoxes() { return std::exchange(boxes, {}); }

    std::string AppPath() override { return "c:\\nwb"; }
    std::string TempPath() override { return "c:\\temp"; }
    std::string rtcDir(const std::string& path) override {
        step("rtcDir");
        EXPECT_NE(path, "") << "which would stand for any file";
        const auto found = files.find(path);
        return found == files.end() ? "" : found->first.substr(path.find_last_of("\\:") + 1);
    }
    std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) override {
        step("rtcFileDateTime");
        const int changed = file("find", path)->second.changed;
        return std::chrono::system_clock::time_point(std::chrono::seconds(changed));
    }
    /// Printed text reaches the disk only here, and only half of it if this call fails.
    void vbaFileFlush() override {
        const std::string text = std::exchange(printed_, "");
        files[open_].text += text.substr(0, text.size() / 2);
        step("vbaFileFlush");
        files[open_].text += text.substr(text.size() / 2);
        unflushed_.clear();
    }
    void rtcKillFiles(const std::string& path) override {
        step("rtcKillFiles");
        files.erase(file("delete", path));
    }
    void vbaNameFile(const std::string& from, const std::string& to) override {
        step("vbaNameFile");
        const auto renamed = file("rename", from);
        if (files.contains(to))
            throw core::RuntimeError("Cannot rename " + from + " to " + to + ": ");
        EXPECT_NE(from, open_) << "no open file can be renamed on Windows";
        EXPECT_NE(from, unflushed_) << "after a power loss the renamed file could be empty";
        files[to] = renamed->second;
        files.erase(renamed);
    }
    Answer rtcMsgBox(const std::string& text, int flags, const std::string& title) override {
        boxes.push_back({text, flags, title});
        const bool failed = flags == exclamation;
        EXPECT_TRUE(failed ? std::regex_search(text, failures) : explains(text)) << text;
        if (whileBoxIsOpen) whileBoxIsOpen();
        return answer;
    }
    void rtcShell(const std::string& command, int style) override {
        step("rtcShell");
        shells.push_back({style, command});
    }
    std::string rtcGetSetting(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& byDefault) override {
        step("rtcGetSetting");
        EXPECT_EQ(application + '/' + section, "The Norvane Workbench/Settings");
        return settings.contains(key) ? settings[key] : byDefault;
    }
    void rtcSaveSetting(const std::string& application, const std::string& section,
                        const std::string& key, const std::string& value) override {
        step("rtcSaveSetting");
        EXPECT_EQ(application + '/' + section, "The Norvane Workbench/Settings");
        settings[key] = value;
    }
    std::string GetShortPathName(const std::string& path) override {
        return shortNames.contains(path) ? shortNames[path] : "";
    }
    std::vector<std::string> drives() override { return driveNames; }
    std::string currentFolder() override { return current; }
    std::vector<std::string> folders(const std::string& path) override {
        if (!tree.contains(path)) throw core::RuntimeError("Cannot open " + path);
        return tree[path];
    }
    std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t root, const std::string& name,
                                            std::uint32_t access) override {
        if (root != 0x80000002 || access != 0x2003F || !registry.contains(name)) return {};
        ++keysOpen;
        return reinterpret_cast<RegistryKey>(&registry[name]);
    }
    std::optional<RegistryValue> RegQueryValueEx(RegistryKey key,
                                                 const std::string& name) override {
        const auto& values = *reinterpret_cast<std::map<std::string, RegistryValue>*>(key);
        return values.contains(name) ? std::optional(values.at(name)) : std::nullopt;
    }
    void RegCloseKey(RegistryKey) override { --keysOpen; }

  protected:
    std::string readFile(const std::string& path) override {
        step("vbaFileOpen");
        open_ = path;
        return file("open", path)->second.text;
    }
    void openOutput(const std::string& path) override {
        step("vbaFileOpen");
        if (readOnly && path.starts_with(AppPath()))
            throw core::RuntimeError("Cannot open " + path + ": it is read-only");
        if (tree.contains(path.substr(0, path.rfind('\\')))) files[unflushed_ = path].text.clear();
        open_ = file("open", path)->first;
    }
    [[nodiscard]] bool isOutputOpen() const override { return !open_.empty(); }
    void writeOutput(const std::string& text) override {
        step("vbaPrintFile");
        printed_ += text;
    }
    void closeOutput() override {
        step("vbaFileClose");
        if (!open_.empty()) files[open_].text += std::exchange(printed_, "");
        open_.clear();
    }

  private:
    Files::iterator file(const std::string& doing, const std::string& path) {
        const auto found = files.find(path);
        if (found == files.end()) throw core::RuntimeError("Cannot " + doing + ' ' + path + ": ");
        return found;
    }
    void step(const std::string& operation) {
        if (++calls == killAt) throw Killed();
        if (calls == failAt) throw core::RuntimeError(operation + " failed");
    }

    std::string open_;
    std::string printed_;
    std::string unflushed_;
};

/// A toolkit without windows.
class FakeToolkit : public forms::Toolkit {
  public:
    std::function<void(forms::Form&)> user;  ///< works each modal form; may set the next one's
    std::string fileChosen;
    forms::FileQuestion fileAsked;
    bool ended = false;
    std::string focused;  ///< name of the control that a handler gave the focus

    void build(forms::Form& form) override {
        form.attachWindow(std::make_unique<Window>(*this, form));
    }
    std::string chooseFile(forms::Form&, const forms::FileQuestion& question) override {
        fileAsked = question;
        return fileChosen;
    }
    void quit() override { ended = true; }

  private:
    class Window : public forms::WindowPeer {
      public:
        Window(FakeToolkit& toolkit, forms::Form& form) : toolkit_(toolkit), form_(form) {}
        void show() override { form_.activate(); }
        void showModal(forms::Form&) override {
            form_.activate();
            if (const auto user = toolkit_.user) user(form_);
            form_.close();
        }
        void hide() override {}
        void refresh() override {}
        void update() override {}
        void focus(const forms::Control& control) override { toolkit_.focused = control.name; }

      private:
        FakeToolkit& toolkit_;
        forms::Form& form_;
    };
};

/// The program, with a console that opens on the state set by the test.
template <typename Toolkit>
struct DeskWith {
    FakeRuntime runtime;
    Toolkit toolkit;
    forms::Application application{
        toolkit, [this](const std::string& text, bool) { runtime.rtcMsgBox(text, 48, ""); }};
    core::Program program{runtime};
    core::AppState& state = program.state;
    console::frmConsole* opened = nullptr;

    console::frmConsole& open() {
        opened = &application.load<console::frmConsole>(program);
        opened->Show();
        return *opened;
    }
};
using Desk = DeskWith<FakeToolkit>;

/// Loads every form of the program, beginning with a console.
inline std::vector<forms::Form*> everyForm(forms::Application& application,
                                           core::Program& program) {
    std::vector<forms::Form*> loaded;
    for (auto& form : console::everyForm(application, program))
        loaded.push_back(&application.add(std::move(form)));
    return loaded;
}

/// Calls `use` with each tab of the form selected, or once if it has none. All panels have been
/// shown before, which creates what is in them.
inline void onEachPage(forms::Form& form, const std::function<void()>& use) {
    auto* console = dynamic_cast<console::frmConsole*>(&form);
    for (int tab = 1; console && tab <= 4; ++tab)
        console->tbsOptions.SelectedItem = tab;
    for (int tab = console ? 4 : 1; tab > 0; --tab) {
        SCOPED_TRACE(form.name + " " + std::to_string(tab));
        if (console) console->tbsOptions.SelectedItem = tab;
        use();
    }
}

/// Replaces the handlers of all the form's controls but its tabs by ones that log their names.
inline void logHandlers(forms::Form& form, std::string& heard) {
    for (forms::Control* control : form.allControls())
        if (control->name != "tbsOptions")
            control->setHandler([&heard, control] { heard += control->fullName() + " "; });
}

/// Returns the lines that "|" separates, each ended by CRLF.
inline std::string lines(const std::string& texts) {
    return std::regex_replace(texts, std::regex("\\|"), "\r\n") + "\r\n";
}

}  // namespace fakes
