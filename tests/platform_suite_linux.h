#pragma once

#include <map>
#include <thread>

#include "core/text.h"
#include "linux_desktop.h"
#include "platform/linux/linux_runtime.h"

/// Linux under the suite: the place is a folder of drive c:, and scripts run without a terminal.
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
    /// Sets the search path to the folder, and others that must not count.
    static void setSearchPath(const fs::path& folder) {
        setVariable("PATH", ".::" + folder.string());
    }
    /// The program lies in a folder with a name of every kind of character.
    Runtime makeRuntime(const Runtime::MessageBox& box) const {
        const fs::path programs = home / "nwb's $(x);&`y`/bin";
        fs::create_directories(programs);
        if (!fs::exists(programs / "nwbw-batch"))
            fs::create_symlink(NWBW_PROGRAMS "/nwbw-batch", programs / "nwbw-batch");
        return Runtime(box, programs);
    }

    /// Nobody can keep a file from being renamed here.
    static std::jthread hold(const fs::path&) { return {}; }
    std::string commandOf(const fs::path& program) const {
        return core::quoted(folder + '\\' + program.filename().string());
    }

    // Any name of a game may exist, and the tools are given the host's own.
    static inline const std::string ordinaryNames[] = {
        "été",     "a&ed", "a;ed",         "a|ed",        "$(ed)",
        "`ed`",    "a>b",  "a<b",          "$HOME",       "%PATH%",
        "100%",    "a^b",  "-rf",          "--help",      "*",
        "a?b",     "[a]",  "{a,b}",        "~",           "a'b",
        "a=b,c",   "a!b",  "a\"b",         "\\..\\..\\b", "c:",
        "#x",      "a\tb", "a\ned\nexit",  "a\rb",        "\x1b]0;x\a",
        "caf\xe9", "exit", "pause x & ed", "<walk log",   std::string(240, 'n')};
    static inline const std::map<std::string, std::string> refusedNames;
    static fs::path pathOf(const std::string& name) { return name; }
    static std::string asTyped(Runtime& runtime, const fs::path& file) {
        return runtime.disk().toWindows(file);
    }
    /// How the compiler is given the game, and Notepad, but for the extension.
    static std::pair<std::string, std::string> wordsFor(Runtime&, const fs::path& game) {
        return {game.filename(), game};
    }

    /// A hidden file's name begins with a dot here.
    static std::string hide(const fs::path& file) {
        const std::string name = '.' + file.filename().string();
        fs::rename(file, file.parent_path() / name);
        return name;
    }
    /// Files are UTF-8 here, and what is not stays as it is.
    static constexpr const char* oldText = "m\xe4rchen";

    const fs::path place = c / "suite";
    const std::string folder = "c:\\suite";
};
