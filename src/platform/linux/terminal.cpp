#include "platform/linux/terminal.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/runtime.h"
#include "platform/linux/command_line.h"
#include "platform/linux/desktop_entry.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

/// How a terminal is told what to run. All of them take the words one by one behind the option.
struct Form {
    std::string_view name;
    std::string_view run;        ///< stands before the words; empty if they follow at once
    std::string_view maximised;  ///< empty if the terminal has no such option
};

constexpr auto forms = std::to_array<Form>({
    {"xterm", "-e", "-maximized"},
    {"lxterm", "-e", "-maximized"},
    {"uxterm", "-e", "-maximized"},
    {"konsole", "-e", ""},
    {"gnome-terminal", "--", "--maximize"},
    {"xfce4-terminal", "-x", "--maximize"},
    {"mate-terminal", "-x", "--maximize"},
    {"terminator", "-x", "--maximise"},
    {"kitty", "", "--start-as=maximized"},
    {"foot", "", "--maximized"},
    {"xdg-terminal-exec", "", ""},
});
constexpr Form commonForm = {"", "-e", ""};

constexpr std::array terminals = {"xdg-terminal-exec", "x-terminal-emulator", "xterm",
                                  "konsole",           "gnome-terminal",      "xfce4-terminal"};

const Form* formNamed(const fs::path& program) {
    const auto* form = std::find_if(forms.begin(), forms.end(), [&](const Form& known) {
        return known.name == program.filename().string();
    });
    return form == forms.end() ? nullptr : form;
}

/// The form by the program's own name, else by that of the program it is a link to.
const Form& formOf(const fs::path& program) {
    if (const Form* form = formNamed(program)) return *form;
    std::error_code failed;
    const fs::path target = fs::canonical(program, failed);
    if (const Form* form = formNamed(target)) return *form;
    return commonForm;
}

/// The terminal's command: its path, and what the user's own choice adds to it.
std::vector<std::string> findTerminal() {
    if (const char* chosen = std::getenv("TERMINAL")) {
        std::vector<std::string> words = CommandLine(chosen).words;
        if (!words.empty()) words[0] = onSearchPath(words[0]);
        if (!words.empty() && !words[0].empty()) return words;
    }
    for (const char* name : terminals)
        if (const std::string program = onSearchPath(name); !program.empty()) return {program};
    throw core::RuntimeError(
        "No terminal was found. Install one, for example xterm, or name yours in the environment "
        "variable TERMINAL.");
}

}  // namespace

Invocation inTerminal(const std::vector<std::string>& words, bool maximised) {
    Invocation terminal{findTerminal(), "", false};
    const Form& form = formOf(terminal.words[0]);
    if (maximised && !form.maximised.empty()) terminal.words.emplace_back(form.maximised);
    if (!form.run.empty()) terminal.words.emplace_back(form.run);
    terminal.words.insert(terminal.words.end(), words.begin(), words.end());
    return terminal;
}

}  // namespace platform
