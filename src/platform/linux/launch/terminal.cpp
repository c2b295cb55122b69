#include "platform/linux/launch/terminal.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/runtime.h"
#include "platform/linux/launch/search_path.h"
#include "platform/linux/launch/shell_words.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

/// How a terminal takes the command to run.
enum class Joined {
    No,     ///< as separate arguments
    Shell,  ///< as one text for a shell
    Env,    ///< as one argument of "env", since the terminal expands variables
    Qt,     ///< the same in one text, which is split at blanks outside double quotes
};

struct Terminal {
    std::string_view name;
    std::string_view options;    ///< start a new process; a running one would change words
    std::string_view maximised;  ///< maximises the window; empty if there is no such option
    std::string_view run;        ///< precedes the command; may be empty
    Joined joined = Joined::No;
};

/// The terminals known to work, in order of preference. Options are split as by a shell.
constexpr auto known = std::to_array<Terminal>({
    {"xterm", "", "-maximized", "-e"},
    {"lxterm", "", "-maximized", "-e"},
    {"uxterm", "", "-maximized", "-e"},
    {"konsole", "", "--fullscreen", "-e", Joined::Env},
    {"gnome-terminal", "", "--maximize", "--"},
    {"xfce4-terminal", "--disable-server", "--maximize", "-x"},
    {"mate-terminal", "--disable-factory", "--maximize", "-x"},
    {"lxterminal", "--no-remote", "--geometry=400x200", "-e"},
    {"terminator", "--no-dbus", "--maximise", "-x"},
    {"tilix", "--new-process", "--maximize", "-e", Joined::Shell},
    {"sakura", "", "--maximize", "-x", Joined::Shell},
    {"qterminal", "", "", "-e", Joined::Qt},
    {"terminology", "", "--maximized", "-e", Joined::Shell},
    {"kitty", "", "--start-as=maximized", ""},
    {"alacritty", "", "-o 'window.startup_mode=\"Maximized\"'", "-e"},
    {"stterm", "", "-g 400x200", "-e"},
    {"st", "", "-g 400x200", "-e"},
    {"foot", "", "--maximized", "-e"},
});
constexpr Terminal unknown = {"", "", "", "-e"};

const Terminal* knownAs(const std::string& name) {
    const auto* found = std::ranges::find_if(
        known, [&](const Terminal& terminal) { return terminal.name == name; });
    return found == known.end() ? nullptr : found;
}

/// A terminal's command: its path, then arguments that the user has chosen.
struct Chosen {
    std::vector<std::string> command;
    Terminal terminal = unknown;
};

/// Recognises the terminal by the program's own name or that of its link's target. Debian's
/// wrappers only take the options of xterm, so the wrapped terminal is started instead.
Chosen recognised(std::vector<std::string> command) {
    constexpr std::string_view wrapper = ".wrapper";
    const fs::path program = command[0];
    std::error_code failed;
    const fs::path target = fs::canonical(program, failed);
    for (const fs::path& path : {program, target}) {
        const std::string name = path.filename().string();
        if (const Terminal* terminal = knownAs(name)) return {std::move(command), *terminal};
        if (!name.ends_with(wrapper)) continue;
        const std::string wrapped = name.substr(0, name.size() - wrapper.size());
        const Terminal* terminal = knownAs(wrapped);
        const std::string itself = onSearchPath(wrapped);
        if (terminal == nullptr || itself.empty()) continue;
        command[0] = itself;
        return {std::move(command), *terminal};
    }
    return {std::move(command)};
}

Chosen findTerminal() {
    if (const char* chosen = std::getenv("TERMINAL")) {
        std::vector<std::string> command = shellWords(chosen);
        if (!command.empty()) command[0] = onSearchPath(command[0]);
        if (!command.empty() && !command[0].empty()) return recognised(std::move(command));
    }
    if (const std::string program = onSearchPath("x-terminal-emulator"); !program.empty())
        return recognised({program});
    for (const Terminal& terminal : known) {
        if (const std::string program = onSearchPath(std::string(terminal.name)); !program.empty())
            return {{program}, terminal};
    }
    throw core::Refusal(
        "No terminal was found. Install one, for example xterm, or name yours in the environment "
        "variable TERMINAL.");
}

std::string quotedForQt(const std::string& argument) {
    if (argument.find('"') == std::string::npos) return '"' + argument + '"';
    throw core::Refusal("qterminal cannot be given a name with a double quote: " + argument);
}

void append(std::vector<std::string>& words, const std::vector<std::string>& more) {
    words.insert(words.end(), more.begin(), more.end());
}

}  // namespace

Invocation inTerminal(const std::vector<std::string>& words, bool maximised) {
    const auto [command, terminal] = findTerminal();
    Invocation invocation{command, "", false};
    append(invocation.words, shellWords(terminal.options));
    if (maximised) append(invocation.words, shellWords(terminal.maximised));
    append(invocation.words, shellWords(terminal.run));
    switch (terminal.joined) {
        case Joined::No:
            append(invocation.words, words);
            break;
        case Joined::Shell:
            invocation.words.push_back(shellText(words));
            break;
        case Joined::Qt:
            invocation.words.push_back("env " + quotedForQt(envArgument(words)));
            break;
        case Joined::Env:
            append(invocation.words, {"env", envArgument(words)});
            break;
    }
    return invocation;
}

}  // namespace platform
