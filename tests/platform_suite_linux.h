#pragma once

#include <algorithm>
#include <map>
#include <thread>
#include <vector>

#include "core/text.h"
#include "linux_desktop.h"
#include "platform/linux/linux_runtime.h"

/// Linux for the suite: `place` is a folder on drive c:, and scripts run without a terminal.
class System : public LinuxDesktop {
  protected:
    using Runtime = platform::LinuxRuntime;

    System() {
        fs::create_directories(place);
        fs::current_path(place);
        program(home / "bin/uxterm",
                "#!/bin/sh\nwhile [ $1 != -e ]; do shift; done\nshift; exec \"$@\"\n");
        setVariable("TERMINAL", home / "bin/uxterm");
    }
    static void setVariable(const char* name, const std::string& value) {
        setenv(name, value.c_str(), 1);
    }
    /// Sets the search path to the folder and to entries that must be ignored.
    static void setSearchPath(const fs::path& folder) {
        setVariable("PATH", "./::tools/..:" + folder.string());
    }
    /// The program is in a folder whose name has special characters of all kinds.
    Runtime makeRuntime(const Runtime::MessageBox& box) const {
        const fs::path programs = home / "nwb's $(x);&`y`/bin";
        fs::create_directories(programs);
        if (!fs::exists(programs / "nwbw-batch"))
            fs::create_symlink(NWBW_PROGRAMS "/nwbw-batch", programs / "nwbw-batch");
        return Runtime(box, platform::HostPath(programs));
    }

    /// Does nothing: an open file can be renamed here.
    static std::jthread hold(const fs::path&, bool) { return {}; }
    static constexpr const char* byScript = "";
    static constexpr const char* maximised = "";
    static constexpr const char* bareName = "tool.exe";
    static constexpr const char* settingsKey = "";  ///< none
    std::string commandOf(const fs::path& program) const {
        std::string path = fs::relative(program, place).string();
        std::ranges::replace(path, '/', '\\');
        return core::quoted(folder + '\\' + path);
    }

    // A game may have any name; the tools get the host's names.
    static inline const std::string ordinaryNames[] = {
        "été",     "a&ed", "a;ed",         "a|ed",        "$(ed)",
        "`ed`",    "a>b",  "a<b",          "$HOME",       "%PATH%",
        "100%",    "a^b",  "-rf",          "+so",         "*",
        "a?b",     "[a]",  "{a,b}",        "~",           "a'b",
        "a=b,c",   "a!b",  "a\"b",         "\\..\\..\\b", "c:",
        "#x",      "a\tb", "a\ned\nexit",  "a\rb",        "\x1b]0;x\a",
        "caf\xe9", "exit", "pause x & ed", "<walk log",   std::string(240, 'n')};
    static inline const std::map<std::string, std::string> refusedNames;
    static fs::path pathOf(const std::string& name) { return name; }
    static std::string asTyped(Runtime& runtime, const fs::path& file) {
        return runtime.disk().toWindows(platform::HostPath(file));
    }
    /// Returns the names of the game that the compiler and Notepad get, without extension.
    static std::pair<std::string, std::string> wordsFor(const fs::path& game) {
        const std::string name = game.filename();
        const bool likeAnOption = name.starts_with('-') || name.starts_with('+');
        return {likeAnOption ? "./" + name : name, game};
    }

    /// Hides the file by a dot before its name.
    static std::string hide(const fs::path& file) {
        const std::string name = '.' + file.filename().string();
        fs::rename(file, file.parent_path() / name);
        return name;
    }
    /// The bytes of texts in a file: UTF-8; other bytes are kept.
    static inline const std::map<std::string, std::string> texts = {{"märchen", "märchen"},
                                                                    {"m\xe4rchen", "m\xe4rchen"}};

    const fs::path place = c / "suite";
    const std::string folder = "c:\\suite";
};
