#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <csignal>

#include "agreed.h"
#include "linux_desktop.h"
#include "platform/linux/launch/batch_interpreter.h"
#include "platform/linux/launch/invocation.h"
#include "platform/linux/launch/search_path.h"
#include "platform/linux/launch/terminal.h"
#include "platform/linux/linux_runtime.h"

using namespace platform;
using namespace std::literals;

namespace {

/// A user's home, scripts and paths as the lines of linux.txt say. {c}, {d} and {home} stand for
/// the folders of the drives and of the user, and a number in braces for a byte.
///
///     file PATH [= TEXT]       a file of the host
///     program PATH = TEXT      which may be executed
///     tool PATH                a program that tells its folder, words and input
///     link PATH = PATH         to the second
///     mode PATH = NUMBER       who may do what
///     remove PATH              a file or folder
///     set NAME = [TEXT]        a variable of the environment
///     enter PATH               the current folder, at first that of drive c
///     titles                   are shown from now on
///     > LINE                   of a script, which runs after its last line
///     start COMMAND            how that fails
///     host PATH                where a Windows path leads, and its short form
///     path PATH                the Windows path for the host's
class Batch : public LinuxDesktop {
  protected:
    Batch() {
        setenv("PATH", (home / "bin").c_str(), 1);
        fs::create_directories(home / "bin");
        putTool(c / "kelm/tool.exe");
    }

    static void putTool(const fs::path& path) {
        fs::create_directories(path.parent_path());
        fs::copy_file(NWBW_ECHO_CHILD, path);
    }
    void putEchoChild(const std::string& name) const { putTool(home / "bin" / name); }
    [[nodiscard]] std::string echoed() const { return contentOf(home / "echo"); }

    /// Returns what a script shows, and what its tools get after "=".
    std::string outcomeOf(const std::string& script) {
        const fs::path before = fs::current_path();
        fs::remove(home / "echo");
        std::istringstream in("\n");
        std::ostringstream out;
        const bool good = BatchInterpreter(disk, in, out, titles).run(script);
        out << (in.peek() == EOF ? "\n(waits)\n" : "") << (good ? "" : "(fails)\n");
        EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL) << "as before the programs ran";
        fs::current_path(before);
        return out.str() + std::regex_replace(echoed(), std::regex("(.+\n)"), "= $1");
    }
    /// Returns where a Windows path leads and its short form: the same while the folders have just
    /// changed, when no listing is kept, when they are old, and by the listings kept then.
    std::string placeOf(const std::string& path) {
        std::string found;
        const auto look = [&] {
            const auto host = disk.toHost(path);
            const std::string now = (host ? host->text() : "nowhere") + ' ' + disk.shortPath(path);
            EXPECT_TRUE(found.empty() || found == now) << path << found << now;
            found = now;
        };
        for (const auto age : {0h, 1h}) {
            for (const auto& entry : fs::recursive_directory_iterator(home))
                if (entry.is_directory() && !entry.is_symlink())
                    fs::last_write_time(entry, start - age);
            look();
        }
        look();
        return found;
    }
    std::string shown(std::string seen) const {
        for (const auto& [name, place] : places)
            for (std::size_t at; (at = seen.find(place)) != seen.npos;)
                seen.replace(at, place.size(), '{' + name + '}');
        std::ostringstream shown;
        for (const char byte : seen)
            byte == '\n' || (byte >= ' ' && byte < '\x7f')
                ? shown << byte
                : shown << std::hex << '{' << int{static_cast<unsigned char>(byte)} << '}';
        return fakes::marked(shown.str());
    }
    /// Acts as the line says. Returns what is seen.
    std::string perform(const std::string& line) {
        const auto asked = fakes::actOf(line);
        const fs::path path = home / asked.name;
        std::string seen;
        const std::map<std::string, std::function<void()>> verbs = {
            {"file", [&] { write(path, asked.value); }},
            {"program", [&] { program(path, asked.value); }},
            {"tool", [&] { putTool(path); }},
            {"link", [&] { fs::create_symlink(asked.value, path); }},
            {"mode", [&] { fs::permissions(path, fs::perms(std::stoi(asked.value, nullptr, 8))); }},
            {"remove", [&] { fs::remove_all(path); }},
            {"set", [&] { setenv(asked.name.c_str(), asked.value.c_str(), 1); }},
            {"enter", [&] { fs::current_path(path); }},
            {"titles", [&] { titles = BatchInterpreter::Titles::Yes; }},
            {"start",
             [&] {
                 LinuxRuntime runtime(nullptr, HostPath(NWBW_PROGRAMS));
                 seen = errorOf([&] { runtime.rtcShell(asked.name, 1); }) + '\n';
             }},
            {"host", [&] { seen = placeOf(asked.name) + '\n'; }},
            {"path", [&] { seen = disk.toWindows(HostPath(asked.name)) + '\n'; }}};
        verbs.at(asked.verb)();
        return seen;
    }

    WindowsDisk disk{Drives::ofUser()};
    const std::map<std::string, std::string> places = {
        {"c", c}, {"d", d}, {"home", home}, {"z", disk.toWindows(HostPath(home))}};
    const fs::file_time_type start = fs::file_time_type::clock::now();
    BatchInterpreter::Titles titles = BatchInterpreter::Titles::No;
};

}  // namespace

TEST_F(Batch, RunsAsAgreed) {
    std::istringstream lines(contentOf(fs::path(NWBW_TESTS) / "linux.txt"));
    std::string transcript, script;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('|')) continue;  // what was seen when it was agreed
        const bool ofScript = line.starts_with('>');
        if (!ofScript && !script.empty()) transcript += shown(outcomeOf(std::exchange(script, "")));
        transcript += line + '\n';
        line = fakes::filled(line, places);
        if (ofScript)
            script += line.substr(std::min<std::size_t>(2, line.size())) + '\n';
        else if (!line.empty() && line[0] != '#')
            transcript += shown(perform(line));
    }
    fs::current_path(folderBefore);
    fakes::expectAgreed("linux.txt", transcript);
}

TEST_F(Batch, StaysInItsTerminalAfterAnError) {
    write(c / "x.bat", "\"c:\\descriptors\"\nnotepad x");
    program(c / "descriptors",
            "#!/bin/sh\n[ -e /proc/$$/fd/9 ] || [ -e /proc/$$/fd/3 ] || echo none left\n"
            "/bin/stty -echo\n");
    // A game's folder must not choose the editor.
    write(c / "kelm/mimeapps.list", "[Default Applications]\ntext/plain=mine.desktop;\n");
    write(c / "kelm/applications/ed.desktop", "[Desktop Entry]\nExec=ed\n");
    write(home / "mimeapps.list", "[Default Applications]\ntext/plain=ed.desktop;\n");
    write(home / "applications/mine.desktop", "[Desktop Entry]\nExec=ed\n");
    putEchoChild("ed");
    for (const char* name :
         {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
        setenv(name, (home.string() + ":applications/..").c_str(), 1);
    const std::tuple<const char*, const char*, std::vector<const char*>> rows[] = {
        {"../x.bat", "kelm", {"\x1b]2;", "none left", "No text editor was found", " . . . "}},
        {"none.bat", "kelm", {"none.bat", " . . . "}},
        {"../x.bat", "none", {"Cannot change to none: No such file or directory\r\nPress"}}};
    for (const auto& [script, folder, texts] : rows) {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        ASSERT_GE(child, 0);
        if (child == 0) {
            dup2(STDERR_FILENO, 3);
            dup2(STDERR_FILENO, 9);
            execl(NWBW_PROGRAMS "/nwbw-batch", "", script, folder, (home / "nwbw").c_str(),
                  nullptr);
            _exit(127);
        }
        std::string seen;
        char next = 0;
        while (!seen.ends_with("Press Enter to close this window . . . ") &&
               read(terminal, &next, 1) == 1)
            seen += next;
        termios settings = {};
        tcgetattr(terminal, &settings);
        EXPECT_TRUE(settings.c_lflag & ECHO) << "whatever the tools leave";
        EXPECT_EQ(::write(terminal, "\n", 1), 1);
        int ending = -1;
        waitpid(child, &ending, 0);
        EXPECT_EQ(ending, 0);
        close(terminal);
        for (const char* text : texts)
            EXPECT_NE(seen.find(text), seen.npos) << seen;
    }
}

TEST_F(Batch, GivesEachTerminalItsWords) {
    const std::vector<std::string> command = {c / "kelm/tool.exe", "it's $x", "a\tb\nc\vd\fe\rf",
                                              "#%\\;&|<>*", ""};
    fs::create_symlink("/usr/bin/env", home / "bin/env");
    const std::string none = "qterminal other ";  // have no option for the largest size
    std::istringstream names(
        "xterm lxterm uxterm konsole gnome-terminal xfce4-terminal kitty foot "
        "mate-terminal lxterminal terminator alacritty stterm st tilix sakura "
        "terminology " +
        none);
    for (std::string name; names >> name;) {
        // Does with its words what the terminal of this name does.
        program(
            home / "bin" / name,
            "#!/bin/sh\n"
            "[ \"$1\" = \"--my=own \\$x a \\\"b\\\\\\\\;\" ] || exit 1\n"
            "case $* in *-max*|*creen*|*Max*|*=max*|*x200*) wide=1;; esac\n"
            "[ \"$wide\" = \"$WIDE\" ] || exit 1\n"
            "case ${0##*/}$* in gnome-terminal*' -e '*) exit 1;; esac\n"
            "while case \"$1\" in -e|-x|--) false;; -*) true;; *) [ ${0##*/} != kitty ];; esac\n"
            "do shift; done\n"
            "case ${0##*/} in kitty) exec \"$@\";; esac\nshift\n"
            "case ${0##*/} in tilix|sakura|terminology) [ $# = 1 ] && exec /bin/sh -c \"$1\";;\n"
            "qterminal) set -- \"${1#env \\\"}\" \"${2-none}\" && [ $2 = none ] &&"
            " exec env \"${1%\\\"}\";; esac\nexec \"$@\"\n");
        setenv("TERMINAL", (name + " \"--my=own \\$x\"\\ 'a \"b\\\\'\\;").c_str(), 1);
        for (const bool wide : {true, false}) {
            setenv("WIDE", wide && none.find(name + ' ') == none.npos ? "1" : "", 1);
            fs::remove(home / "echo");
            EXPECT_TRUE(runToEnd(inTerminal(command, wide), "").isGood()) << name;
            EXPECT_EQ(echoed(), c.string() + "[it's $x][a\tb\nc\vd\fe\rf][#%\\;&|<>*][]\n") << name;
        }
    }
    setenv("TERMINAL", "qterminal", 1);
    EXPECT_EQ(errorOf([] { inTerminal({"a\"b"}, true); }),
              "qterminal cannot be given a name with a double quote: -Sa\\\"b");
    // Debian's alternative is a wrapper that knows only xterm's options.
    unsetenv("TERMINAL");
    const fs::path mate = home / "bin/mate-terminal";
    program(mate);
    program(mate.string() + ".wrapper");
    fs::create_symlink("mate-terminal.wrapper", home / "bin/x-terminal-emulator");
    EXPECT_EQ(inTerminal({"k"}, false).words,
              (std::vector{mate.string(), "--disable-factory"s, "-x"s, "k"s}));
    unsetenv("PATH");
    EXPECT_EQ(onSearchPath("env"), "/usr/bin/env");
}

TEST_F(Batch, ShellOpensEditorsAndTellsOfTerminals) {
    int count = 1;
    char name[] = "tests";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    std::string told;
    LinuxRuntime runtime(
        [&](const std::string& text, int flags, const std::string&) {
            told = std::to_string(flags) + ' ' + text;
            return core::Runtime::Answer::Ok;
        },
        HostPath(NWBW_PROGRAMS));
    const std::string xterm = home / "bin/xterm";
    const std::string start = "[-maximized][-e][" + (home / "bin").string();
    setenv("EDITOR", "edit", 1);
    setenv("VISUAL", "ed -w", 1);
    putEchoChild("xterm");
    // Each is preferred to those before; the last has a window of its own.
    for (const auto& [editor, words] : {std::pair("editor", start + "/editor]"),
                                        {"edit", start + "/edit]"},
                                        {"ed", start.substr(12) + "/ed][-w]"},
                                        {"kate", ""s}}) {
        putEchoChild(editor);
        fs::remove(home / "echo");
        runtime.rtcShell("Notepad.exe c:\\my games\\cave.bat", editor == "ed"s ? 1 : 3);
        await("the echo", [&] { return echoed().ends_with('\n'); });
        EXPECT_EQ(echoed(), c.string() + words + "[" + c.string() + "/my games/cave.bat]\n");
    }

    write(c / "x.bat");
    ASSERT_TRUE(std::freopen("/dev/zero", "r", stdin));
    program(xterm,
            "#!/bin/sh\nread -r a b c d e leader rest < /proc/$$/stat\n"
            "until [ -e go ]; do [ -e $0 ] || exit; done\n"
            "[ $leader = $$ ] && [ /proc/self/fd/0 -ef /dev/null ] && exit 7\n");
    runtime.rtcShell("c:\\x.bat", 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");
    write(c / "go");
    await("the terminal's end", [&] {
        QCoreApplication::processEvents();
        return !told.empty();
    });
    EXPECT_EQ(told, "0 The terminal " + xterm +
                        " ended with exit code 7. Name another one in the environment variable "
                        "TERMINAL.");
    fs::remove(xterm);
    EXPECT_EQ(errorOf([] { LinuxRuntime(nullptr, HostPath("/none")).rtcShell("c:\\x.bat", 1); }),
              "Cannot start c:\\x.bat: the program nwbw-batch is missing in /none");
}
