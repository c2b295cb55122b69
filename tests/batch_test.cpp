#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <csignal>
#include <sstream>

#include "linux_desktop.h"
#include "platform/linux/launch/batch_interpreter.h"
#include "platform/linux/launch/invocation.h"
#include "platform/linux/launch/search_path.h"
#include "platform/linux/launch/terminal.h"
#include "platform/linux/linux_runtime.h"

using namespace platform;
using namespace std::literals;

namespace {

class Batch : public LinuxDesktop {
  protected:
    Batch() {
        setenv("PATH", (home / "bin").c_str(), 1);
        fs::create_directories(home / "bin");
        fs::create_directories(c / "kelm");
        fs::copy_file(NWBW_ECHO_CHILD, c / "kelm/tool.exe");
    }

    bool run(const std::string& script) {
        fs::remove(home / "echo");
        std::istringstream in("\n");
        std::ostringstream out;
        WindowsDisk disk(Drives::ofUser());
        const bool done = BatchInterpreter(disk, in, out, titles).run(script);
        shown = out.str();
        paused = in.peek() == EOF;
        return done;
    }
    [[nodiscard]] std::string echoed() const { return contentOf(home / "echo"); }
    /// Expects how the script ends, a part of what it shows, and what its tools get.
    void expectRun(const std::string& script, bool good, const std::string& part,
                   const std::string& echo) {
        EXPECT_EQ(run(script), good) << script << shown;
        EXPECT_NE(shown.find(part), std::string::npos) << part << shown;
        EXPECT_EQ(echoed(), echo) << script << shown;
    }
    void putEchoChild(const std::string& name) const {
        fs::copy_file(NWBW_ECHO_CHILD, home / "bin" / name);
    }

    const std::string tool = "\"c:\\kelm\\tool.exe\" ";
    BatchInterpreter::Titles titles = BatchInterpreter::Titles::No;
    std::string shown;
    bool paused = false;
};

}  // namespace

TEST_F(Batch, GivesNativeToolsTheNamesOfTheHost) {
    const std::string games = c / "My Games";
    for (const char* file : {"wizardquest.kel", "Cave.kel", "iso.kel", "+so.kel", "-d.kel",
                             "-v1.kel", "-draft of it.kel", "+set.x.LIS", "Quest.kel", "quest.lis",
                             "../kelm/standard library/x", "../../../stories/out/x"})
        write(games / fs::path(file));
    write(c / "My Games/my walk.kel", "east");
    const std::string draft =
        WindowsDisk(Drives::ofUser()).shortPath("c:\\my games\\-draft of it.kel").substr(12, 8);
    const std::string kelm = c / "kelm";
    const std::string out = d / "out";
    const std::pair<std::string, std::string> cases[] = {
        {"WIZARD~1.lis wizard~1.KEL -Pack", "[wizardquest.lis][wizardquest.kel][-Pack]"},
        {"-Include \"c:\\kelm\\STANDA~1\"", "[-Include][" + kelm + "/standard library]"},
        {"-OFD:\\out\\words.txt", "[-OF" + out + "/words.txt]"},
        {"-o..\\kelm\\w.txt -ld:\\out\\x", "[-o" + kelm + "/w.txt][-l" + out + "/x]"},
        {"-OFWIZARD~1.txt -lWIZARD~1", "[-OFwizardquest.txt][-lwizardquest]"},
        {"-OFd:\\..\\out\\w.txt -lsub/WIZARD~1", "[-OF" + out + "/w.txt][-lsub/WIZARD~1]"},
        {"sub\\x.txt Quest", "[" + games + "/sub/x.txt][Quest]"},
        {"cave -CharSet ISO cave.KEL", "[Cave][-CharSet][ISO][Cave.kel]"},
        {"-Height 0 https://x.y/z /d NOBODY~1 \"\"", "[-Height][0][https://x.y/z][/d][NOBODY~1][]"},
        {"/MYGAME~1/new /kelm/none \\kelm", "[" + games + "/new][" + kelm + "/none][" + kelm + "]"},
        {"-OF\"a b\".txt  \"<\" a&b|c>d%e%^f", "[-OFa b.txt][<][a&b|c>d%e%^f]"},
        {"-d +so +so.lis -V1 -v2 +SET.x", "[-d][./+so][./+so.lis][./-v1][-v2][./+set.x]"},
        {draft, "[./-draft of it]"},
        {"/kelm " + home.string(), "[" + kelm + "][" + home.string() + "]"},
    };
    for (const auto& [words, echo] : cases)
        expectRun("c:\ncd \"\\my games\\\"\n" + tool + words + "<\"my walk.kel\" -d ", true, "",
                  games + echo + "[-d]east\n");
}

TEST_F(Batch, GivesWindowsProgramsLongNamesThroughWine) {
    write(c / "my games/wizardquest.kel");
    write(c / "my games/a\\..\\..\\x.kel");
    program(c / "kelm/krun.exe", "MZ");
    const std::string line =
        "cd \"\\my games\"\n\"c:\\kelm\\krun.exe\" WIZARD~1 WIZARDQUEST c:\\MYGAME~1\\x "
        "A~BE8QYT.KEL /kelm";
    expectRun(line, false, "c:\\kelm\\krun.exe is a Windows program, and Wine is not installed.\n",
              "");
    putEchoChild("wine");
    expectRun(line + " < wizardquest.kel", true, "",
              (c / "my games").string() +
                  "[c:\\kelm\\krun.exe][wizardquest][WIZARDQUEST]"
                  "[c:\\my games\\x][A~BE8QYT.KEL][/kelm]\n");
    program(home / "bin/wine", "#!/bin/sh\necho $WINEPREFIX > $NWBW_ECHO\n");
    expectRun(line, true, "", home / "nwbw\n");
    fs::copy_file(home / "bin/wine", c / "native");
    setenv("WINEPREFIX", (home / "nwbw").c_str(), 1);
    expectRun("\"c:\\native\"", true, "", home / "nwbw\n");
}

TEST_F(Batch, KeepsEachDrivesFolder) {
    titles = BatchInterpreter::Titles::Yes;
    fs::create_directories(c / "games");
    const std::string old = d / "tales/old";
    fs::create_directories(old);
    const std::string title = "tool.exe 3 - Norvane Workbench\a";
    expectRun("cd C:\\games\r\nd:\r\n\r\nCD\\tales\ncd old\ncd \"..\\old\\\"\nC:\n" + tool +
                  "1\nd:\n" + tool + "2\ncd c:\\kelm\n" + tool + "3\nc:\n" + tool +
                  "4\ncd \\games\nC:\n" + tool + "5\nEXIT\n" + tool + "6",
              true, "\nD:\\tales\\old>" + tool + "3\n\x1b]2;" + title + "\x1b]30;" + title,
              (c / "games").string() + "[1]\n" + old + "[2]\n" + old + "[3]\n" +
                  (c / "kelm").string() + "[4]\n" + (c / "games").string() + "[5]\n");
}

TEST_F(Batch, TellsWhatIsMissing) {
    write(c / "plain.txt", "text");
    program(c / "tool", "\177ELF");
    fs::permissions(c / "tool", fs::perms::owner_read);
    const std::string folder = ". The script ends here, so that nothing runs in a wrong folder.";
    const std::string noTool = "Cannot start c:\\kelm\\tool.exe ";
    const std::string noInput = "The command was not run: cannot read ";
    std::vector<std::pair<std::string, std::string>> cases = {
        {"q:", "Cannot change to q:: No such drive" + folder},
        {"cd \"\\none\\\"", "Cannot change to \\none\\: No such file or directory" + folder},
        {"cd d:\\none", "Cannot change to d:\\none: No such folder" + folder},
        {"\"c:\\none.exe\" x", "Cannot start c:\\none.exe: there is no such program."},
        {"\"c:\\plain.txt\"", "Cannot start c:\\plain.txt: it is not a program that runs here."},
        {"\"c:\\tool\"", "Cannot start c:\\tool: it may not be executed."},
        {"notepad x",
         "No text editor was found. Install one, for example mousepad or nano, or name yours in "
         "the environment variable VISUAL or EDITOR."},
        {tool + "q:\\x", noTool + "q:\\x: there is no such place."},
        {tool + "-OFq:\\x", noTool + "q:\\x: there is no such place."},
        {tool + "-OF\\\\host\\x", noTool + "\\\\host\\x: there is no such place."},
        {tool + "x < none.log", noInput + "none.log: No such file or directory."},
        {tool + "x <", "The command was not run: no file is named after \"<\"."},
        {tool + "x < \\", noInput + "\\: It is not an ordinary file."},
        {tool + "x\0y"s,
         "Cannot start " + (c / "kelm/tool.exe").string() + ": a word holds a NUL byte"},
        {"\"/\302\2332J\" x", "Cannot start /?2J: there is no such program."},
    };
    // Only what a line names in full may start.
    putEchoChild("tool.exe");
    for (const char* name : {":", "1:", "tool.exe", "cdx", "pausex", "exitx", "cd", "é:", "-x"})
        fs::copy_file(NWBW_ECHO_CHILD, c / name);
    for (const std::string line :
         {":", "1:", "\303\251:", "c:x", "tool.exe", "\"tool.exe\" x", "c:\\kelm\\tool.exe",
          "\"\" x", "\"c:\\tool.exe", "\"c:\\kelm\\\"tool.exe", "cd", "cdx", "pausex", "pause x",
          "exit x", "notepad.exe x", "\"notepad\" x"})
        cases.emplace_back(' ' + line,
                           "Cannot run " + line +
                               ": only a program that is given with its folder can be started" +
                               folder);
    for (const auto& [line, message] : cases)
        expectRun(line + '\n' + tool + "last", false, '\n' + message + '\n',
                  message.ends_with(folder) ? "" : c.string() + "[last]\n");
}

TEST_F(Batch, OpensTheDesktopsEditorForNotepad) {
    setenv("XDG_CURRENT_DESKTOP", "none:My", 1);
    write(home / "my-mimeapps.list",
          "[Default Applications]\n"
          "text/plain=none.desktop;hidden.desktop;gone.desktop;ed.desktop;\n");
    write(home / "applications/hidden.desktop", "[Desktop Entry]\nExec=ed\nHidden=true\n");
    write(home / "applications/gone.desktop", "[Desktop Entry]\nExec=gone\n");
    write(home / "mimeapps.list", "[Default Applications]\ntext/plain=other.desktop\n");
    write(home / "applications/other.desktop", "[Desktop Entry]\nExec=ed other\n");
    write(home / "applications/ed.desktop",
          "Exec=ed -lost\n[Desktop Action new]\nExec=ed -new\n"
          "[Desktop Entry]\n Exec = ed \"a \\\"b\\\"\" %c %% %U\nTerminal=true\n");
    putEchoChild("ed");
    write(c / "wizardquest.kel");
    const std::string start = c.string() + "[a \"b\"][%]", url = "[file://" + c.string();
    expectRun(
        "Notepad my caf\xe9.lis \nnotepad WIZARD~1.lis\nnotepad", true, "",
        start + url + "/my%20caf%E9.lis]\n" + start + url + "/wizardquest.lis]\n" + start + '\n');
    fs::remove(home / "my-mimeapps.list");
    expectRun("notepad x", true, "", c.string() + "[other][" + c.string() + "/x]\n");
}

TEST_F(Batch, WaitsForItsReaderWhereTheLastProgramFailed) {
    program(c / "bad", "#!/bin/sh\nexit 3\n");
    program(c / "ill", "#!/bin/sh\nkill -11 $$\n");
    program(c / "stop", "#!/bin/sh\nkill -2 $$\n");
    program(c / "good", "#!/bin/sh\n[ ! -e busy ]\n");
    program(c / "interrupt", "#!/bin/sh\n: >busy\nkill -2 $PPID\n/bin/sleep .1\n/bin/rm busy\n");
    const std::string good = "\"c:\\good\"", bad = "\"c:\\bad\"";
    const std::pair<std::string, std::string> cases[] = {
        {good, good + '\n'},
        {bad, "c:\\bad ended with exit code 3.\n"},
        {bad + '\n' + good, good + '\n'},
        {"\"c:\\ill\"", "c:\\ill was ended by signal 11 (Segmentation fault).\n"},
        {"\"c:\\stop\"\n" + good, "Interrupted.\n"},
        {bad + "\n Pause ", ">Pause\nPress Enter to continue . . . "},
        {"\"c:\\none\"\npause\n" + good, good + '\n'},
        {"\"c:\\interrupt\"\n" + good, good + '\n'},
    };
    for (const auto& [script, end] : cases) {
        EXPECT_EQ(run(script), !end.ends_with(".\n")) << script;
        EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL) << "as before the programs ran";
        EXPECT_EQ(paused, script.find("ause") != std::string::npos) << script;
        EXPECT_TRUE(shown.ends_with(end)) << shown;
    }
}

TEST_F(Batch, StaysInItsTerminalAfterAnError) {
    write(c / "x.bat", "\"c:\\descriptors\"\nnotepad x");
    program(c / "descriptors",
            "#!/bin/sh\n[ -e /proc/$$/fd/9 ] || [ -e /proc/$$/fd/3 ] || echo none left\n");
    // A game's folder must not choose the editor.
    write(c / "kelm/mimeapps.list", "[Default Applications]\ntext/plain=ed.desktop;\n");
    write(c / "kelm/applications/ed.desktop", "[Desktop Entry]\nExec=ed\n");
    putEchoChild("ed");
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
        setenv(name, "/none:applications/..", 1);
    for (const auto& [script, texts] : std::map<const char*, std::vector<const char*>>{
             {"../x.bat", {"\x1b]2;", "none left", "No text editor was found", " . . . "}},
             {"none.bat", {"none.bat", " . . . "}}}) {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        ASSERT_GE(child, 0);
        if (child == 0) {
            dup2(STDERR_FILENO, 3);
            dup2(STDERR_FILENO, 9);
            execl(NWBW_PROGRAMS "/nwbw-batch", "", script, "kelm", (home / "nwbw").c_str(),
                  nullptr);
            _exit(127);
        }
        std::string seen;
        char next = 0;
        while (!seen.ends_with("Press Enter to close this window . . . ") &&
               read(terminal, &next, 1) == 1)
            seen += next;
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
    // Each that takes its words in its own way.
    for (const std::string name : {"xterm", "konsole", "gnome-terminal", "tilix", "sakura",
                                   "qterminal", "terminology", "kitty", "alacritty", "other"}) {
        // Does with its words what the terminal of this name does.
        program(
            home / "bin" / name,
            "#!/bin/sh\n[ \"$1\" = \"--my=own \\$x a \\\"b;\" ] || exit 1\n"
            "case ${0##*/}$* in gnome-terminal*' -e '*) exit 1;; esac\n"
            "while case \"$1\" in -e|-x|--) false;; -*) true;; *) [ ${0##*/} != kitty ];; esac\n"
            "do shift; done\n"
            "case ${0##*/} in kitty) exec \"$@\";; esac\nshift\n"
            "case ${0##*/} in tilix|sakura|terminology) exec /bin/sh -c \"$1\";;\n"
            "qterminal) set -- \"${1#env \\\"}\" && exec env \"${1%\\\"}\";; esac\nexec \"$@\"\n");
        setenv("TERMINAL", (name + " \"--my=own \\$x\"\\ 'a \"b'\\;").c_str(), 1);
        fs::remove(home / "echo");
        EXPECT_TRUE(runToEnd(inTerminal(command, true), "").isGood()) << name;
        EXPECT_EQ(echoed(), c.string() + "[it's $x][a\tb\nc\vd\fe\rf][#%\\;&|<>*][]\n") << name;
        EXPECT_EQ(inTerminal(command, true).words == inTerminal(command, false).words,
                  name == "qterminal" || name == "other")
            << name;
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
    const auto errorOfStart = [&](const std::string& command) {
        return errorOf([&] { runtime.rtcShell(command, 1); });
    };
    EXPECT_TRUE(errorOfStart("c:\\x.bat").starts_with("No terminal was found."));
    EXPECT_EQ(errorOf([] { LinuxRuntime(nullptr, HostPath("/none")).rtcShell("c:\\x.bat", 1); }),
              "Cannot start c:\\x.bat: the program nwbw-batch is missing in /none");
    for (const auto& [name, mine] : {std::pair("shared.bat", 0602), {"grouped.bat", 0620}}) {
        write(c / name);
        fs::permissions(c / name, fs::perms(mine));
    }
    fs::create_symlink("x.bat", c / "link.bat");
    fs::create_directory(c / "folder.bat");
    const std::pair<std::string, const char*> scripts[] = {
        {"none.bat", "No such file or directory"},
        {"shared.bat", "another user may have changed it"},
        {"grouped.bat", "another user may have changed it"},
        {"link.bat", "Too many levels of symbolic links"},
        {"folder.bat", "Is a directory"},
    };
    for (const auto& [script, reason] : scripts) {
        EXPECT_EQ(errorOfStart("c:\\" + script),
                  "Cannot start " + (c / script).string() + ": " + reason);
    }
}
