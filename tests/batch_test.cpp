#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>

#include <QCoreApplication>
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

using Words = std::vector<std::string>;

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
        paused = in.peek() == EOF && shown.find("Press Enter to continue . . . ") != shown.npos;
        return done;
    }
    [[nodiscard]] std::string echoed() const { return contentOf(home / "echo"); }
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
    for (const char* file : {"drive_c/My Games/wizardquest.kel", "drive_c/My Games/Cave.kel",
                             "drive_c/My Games/iso.kel", "drive_c/kelm/standard library/x"})
        write(c.parent_path() / file);
    for (const char* stem : {"+so", "-d", "-v1", "-draft of it"})
        write(c / "My Games" / (std::string(stem) + ".kel"));
    write(c / "My Games/+set.x.LIS");
    write(d / "out/x");
    write(c / "My Games/my walk.kel", "east");
    const std::string games = c / "My Games";
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
        {"-OFd:\\..\\out\\w.txt", "[-OF" + out + "/w.txt]"},
        {"sub\\x.txt", "[" + games + "/sub/x.txt]"},
        {"cave -CharSet ISO cave.KEL", "[Cave][-CharSet][ISO][Cave.kel]"},
        {"-Height 0 https://x.y/z /d NOBODY~1 \"\"", "[-Height][0][https://x.y/z][/d][NOBODY~1][]"},
        {"/MYGAME~1/new /kelm/none", "[" + games + "/new][" + kelm + "/none]"},
        {"-OF\"a b\".txt  \"<\" a&b|c>d%e%^f", "[-OFa b.txt][<][a&b|c>d%e%^f]"},
        {"-d +so +so.lis -V1 -v2 +SET.x", "[-d][./+so][./+so.lis][./-v1][-v2][./+set.x]"},
        {draft, "[./-draft of it]"},
        {"/kelm " + home.string(), "[" + kelm + "][" + home.string() + "]"},
    };
    for (const auto& [words, echo] : cases) {
        EXPECT_TRUE(run("c:\ncd \"\\my games\\\"\n" + tool + words + "<\"my walk.kel\" -d "));
        EXPECT_EQ(echoed(), games + echo + "[-d]east\n") << words << shown;
    }
}

TEST_F(Batch, GivesWindowsProgramsLongNamesThroughWine) {
    write(c / "my games/wizardquest.kel");
    write(c / "my games/a\\..\\..\\x.kel");
    program(c / "kelm/krun.exe", "MZ");
    const std::string line =
        "cd \"\\my games\"\n\"c:\\kelm\\krun.exe\" WIZARD~1 c:\\MYGAME~1\\x A~BE8QYT.KEL -d";
    EXPECT_FALSE(run(line));
    EXPECT_NE(shown.find("c:\\kelm\\krun.exe is a Windows program, and Wine is not installed."),
              std::string::npos);
    putEchoChild("wine");
    EXPECT_TRUE(run(line + " < wizardquest.kel"));
    EXPECT_EQ(echoed(),
              (c / "my games").string() +
                  "[c:\\kelm\\krun.exe][wizardquest][c:\\my games\\x][A~BE8QYT.KEL][-d]\n");
    program(home / "bin/wine", "#!/bin/sh\necho $WINEPREFIX > $NWBW_ECHO\n");
    EXPECT_TRUE(run(line));
    EXPECT_EQ(echoed(), (home / "nwbw\n").string());
}

TEST_F(Batch, KeepsEachDrivesFolder) {
    titles = BatchInterpreter::Titles::Yes;
    fs::create_directories(c / "games");
    const std::string old = d / "tales/old";
    fs::create_directories(old);
    EXPECT_TRUE(run("cd games\r\nd:\r\n\r\nCD\\tales\ncd old\ncd \"..\\old\\\"\nC:\n" + tool +
                    "1\nd:\n" + tool + "2\ncd c:\\kelm\n" + tool + "3\nc:\n" + tool + "4\nEXIT\n" +
                    tool + "5"));
    EXPECT_EQ(echoed(), (c / "games").string() + "[1]\n" + old + "[2]\n" + old + "[3]\n" +
                            (c / "kelm").string() + "[4]\n");
    EXPECT_NE(shown.find("\nD:\\tales\\old>cd c:\\kelm\n"), std::string::npos) << shown;
    const std::string title = "tool.exe 3 - Norvane Workbench\a";
    EXPECT_NE(shown.find("\x1b]2;" + title + "\x1b]30;" + title), std::string::npos) << shown;
}

TEST_F(Batch, TellsWhatIsMissing) {
    write(c / "plain.txt", "text");
    program(c / "tool", "\177ELF");
    fs::permissions(c / "tool", fs::perms::owner_read);
    const std::string last = '\n' + tool + "last";
    const std::string folder = " The script ends here, so that nothing runs in a wrong folder.";
    const std::string noTool = "Cannot start c:\\kelm\\tool.exe ";
    const std::string noInput = "The command was not run: cannot read ";
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"q:", "Cannot change to q:: No such drive." + folder, false},
        {"cd \"\\none\\\"", "Cannot change to \\none\\: No such file or directory." + folder,
         false},
        {"cd d:\\none", "Cannot change to d:\\none: No such folder." + folder, false},
        {"\"c:\\none.exe\" x", "Cannot start c:\\none.exe: there is no such program.", true},
        {"\"c:\\plain.txt\"", "Cannot start c:\\plain.txt: it is not a program that runs here.",
         true},
        {"\"c:\\tool\"", "Cannot start c:\\tool: it may not be executed.", true},
        {"notepad x",
         "No text editor was found. Install one, for example mousepad or nano, or name yours in "
         "the environment variable VISUAL or EDITOR.",
         true},
        {tool + "q:\\x", noTool + "q:\\x: there is no such place.", true},
        {tool + "-OFq:\\x", noTool + "q:\\x: there is no such place.", true},
        {tool + "-OF\\\\s\\x", noTool + "\\\\s\\x: there is no such place.", true},
        {"notepad \\\\s\\x", "Cannot start notepad \\\\s\\x: there is no such place.", true},
        {tool + "x < none.log", noInput + "none.log: No such file or directory.", true},
        {tool + "x < q:\\y", noInput + "q:\\y: No such drive.", true},
        {tool + "x <", "The command was not run: no file is named after \"<\".", true},
        {tool + "x < \\", noInput + "\\: It is not an ordinary file.", true},
        {tool + "x\0y"s,
         "Cannot start " + (c / "kelm/tool.exe").string() + ": a word holds a NUL byte", true},
        {"\"/\302\2332J\" x", "Cannot start /?2J: there is no such program.", true},
    };
    for (const auto& [line, message, goesOn] : cases) {
        EXPECT_FALSE(run(line + last)) << line;
        EXPECT_NE(shown.find('\n' + message + '\n'), std::string::npos) << shown;
        EXPECT_EQ(echoed(), goesOn ? c.string() + "[last]\n" : "") << line;
    }
}

TEST_F(Batch, StartsOnlyWhatALineNamesInFull) {
    putEchoChild("tool.exe");
    for (const char* name : {":", "1:", "tool.exe", "cdx", "pausex", "exitx", "cd", "é:", "-x"})
        fs::copy_file(NWBW_ECHO_CHILD, c / name);
    for (const char* line :
         {" :", "1:", "\303\251:", "c:x", "tool.exe", "\"tool.exe\" x", "c:\\kelm\\tool.exe",
          "\"\" x", "\"c:\\tool.exe", "\"c:\\kelm\\\"tool.exe", "cd", "cdx", "pausex", "pause x",
          "exit x", "notepad.exe x", "\"notepad\" x"}) {
        EXPECT_FALSE(run(std::string(line) + '\n' + tool)) << line;
        EXPECT_NE(shown.find("\nCannot run " + std::string(trimmed(line)) +
                             ": only a program that is "
                             "given with its folder can be started. The script ends here, so that "
                             "nothing runs in a wrong folder.\n"),
                  std::string::npos)
            << shown;
        EXPECT_EQ(echoed(), "") << line;
    }
}

TEST_F(Batch, OpensTheDesktopsEditorForNotepad) {
    setenv("XDG_CURRENT_DESKTOP", "none:My", 1);
    write(home / "my-mimeapps.list", "[Default Applications]\ntext/plain=no.desktop;ed.desktop;\n");
    write(home / "mimeapps.list", "[Default Applications]\ntext/plain=other.desktop\n");
    write(home / "applications/other.desktop", "[Desktop Entry]\nExec=ed other\n");
    write(home / "applications/ed.desktop",
          "[Desktop Action new]\nExec=ed -new\n[Desktop Entry]\nExec=ed \"a \\\"b\\\"\" %c %% %U\n"
          "Terminal=true\n");
    putEchoChild("ed");
    write(c / "wizardquest.kel");
    EXPECT_TRUE(run("Notepad my caf\xe9.lis \nnotepad WIZARD~1.lis\nnotepad"));
    const std::string start = c.string() + "[a \"b\"][%]";
    EXPECT_EQ(echoed(), start + "[file://" + c.string() + "/my%20caf%E9.lis]\n" + start +
                            "[file://" + c.string() + "/wizardquest.lis]\n" + start + '\n');
    fs::remove(home / "my-mimeapps.list");
    EXPECT_TRUE(run("notepad x"));
    EXPECT_EQ(echoed(), c.string() + "[other][" + c.string() + "/x]\n");
}

TEST_F(Batch, WaitsForItsReaderWhereTheLastProgramFailed) {
    program(c / "bad", "#!/bin/sh\nexit 3\n");
    program(c / "ill", "#!/bin/sh\nkill -11 $$\n");
    program(c / "stop", "#!/bin/sh\nkill -2 $$\n");
    program(c / "good");
    const std::string good = "\"c:\\good\"", bad = "\"c:\\bad\"";
    const std::pair<std::string, const char*> cases[] = {
        {good, ""},
        {bad, "c:\\bad ended with exit code 3.\n"},
        {bad + '\n' + good, ""},
        {bad + "\ncd \\\nexit", "c:\\bad ended with exit code 3.\n"},
        {"\"c:\\ill\"", "c:\\ill was ended by signal 11 (Segmentation fault).\n"},
        {"\"c:\\stop\"\n" + good, "Interrupted.\n"},
        {bad + "\n Pause ", ""},
        {"\"c:\\none\"\npause\n" + good, ""},
    };
    for (const auto& [script, message] : cases) {
        EXPECT_EQ(run(script), *message == '\0') << script;
        EXPECT_EQ(paused, script.find("ause") != std::string::npos) << script;
        EXPECT_TRUE(shown.ends_with(message) && (*message != '\0' || !shown.ends_with(".\n")))
            << shown;
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
        setenv(name, ".", 1);
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        dup2(STDERR_FILENO, 9);
        execl(NWBW_PROGRAMS "/nwbw-batch", "", "../x.bat", "kelm", (home / "nwbw").c_str(),
              nullptr);
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
    for (const char* text : {"\x1b]2;", "none left", "No text editor was found", " . . . "})
        EXPECT_NE(seen.find(text), seen.npos) << seen;
}

TEST_F(Batch, GivesEachTerminalItsWords) {
    const std::string words[] = {"it's $x", "a\tb\nc\vd\fe\rf", "#%\\;&|<>*", ""};
    Words command = {c / "kelm/tool.exe"};
    std::string echo = c.string();
    for (const std::string& word : words) {
        command.push_back(word);
        echo += '[' + word + ']';
    }
    fs::create_symlink("/usr/bin/env", home / "bin/env");
    for (const std::string name :
         {"xterm", "lxterm", "uxterm", "konsole", "gnome-terminal", "xfce4-terminal",
          "mate-terminal", "lxterminal", "terminator", "tilix", "sakura", "qterminal",
          "terminology", "kitty", "alacritty", "stterm", "st", "foot", "other"}) {
        // Does with its words what the terminal of this name does.
        program(
            home / "bin" / name,
            "#!/bin/sh\n[ \"$1\" = \"--my=own \\$x a \\\"b;\" ] || exit 1\n"
            "while case \"$1\" in -e|-x|--) false;; -*) true;; *) [ ${0##*/} != kitty ];; esac\n"
            "do shift; done\n"
            "case ${0##*/} in kitty) exec \"$@\";; esac\nshift\n"
            "case ${0##*/} in tilix|sakura|terminology) exec /bin/sh -c \"$1\";;\n"
            "qterminal) set -- \"${1#env \\\"}\" && exec env \"${1%\\\"}\";; esac\nexec \"$@\"\n");
        setenv("TERMINAL", (name + " \"--my=own $x\"\\ 'a \"b'\\;").c_str(), 1);
        fs::remove(home / "echo");
        EXPECT_TRUE(runToEnd(inTerminal(command, true), "").isGood()) << name;
        EXPECT_EQ(echoed(), echo + '\n') << name;
        EXPECT_EQ(inTerminal(command, true).words == inTerminal(command, false).words,
                  name == "qterminal" || name == "other")
            << name;
    }
    setenv("TERMINAL", "qterminal", 1);
    EXPECT_EQ(errorOf([] { inTerminal({"a\"b"}, true); }),
              "qterminal cannot be given a name with a double quote: -Sa\\\"b");
    // Debian's alternative is a wrapper that knows only xterm's options.
    unsetenv("TERMINAL");
    program(home / "bin/mate-terminal.wrapper");
    fs::create_symlink("mate-terminal.wrapper", home / "bin/x-terminal-emulator");
    EXPECT_EQ(inTerminal({"k"}, false).words,
              (Words{home / "bin/mate-terminal", "--disable-factory", "-x", "k"}));
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
    const std::string file = "[" + (c / "my games/cave.kel").string() + "]\n";
    const auto openEditor = [&] {
        fs::remove(home / "echo");
        runtime.rtcShell("notepad c:\\my games\\cave.kel", 3);
        await("the echo", [&] { return echoed().ends_with('\n'); });
        return echoed();
    };
    putEchoChild("xterm");
    putEchoChild("editor");
    EXPECT_EQ(openEditor(),
              c.string() + "[-maximized][-e][" + (home / "bin/editor").string() + "]" + file);
    setenv("VISUAL", "ed -w", 1);
    putEchoChild("ed");
    EXPECT_EQ(openEditor(),
              c.string() + "[-maximized][-e][" + (home / "bin/ed").string() + "][-w]" + file);
    putEchoChild("kate");  // has a window of its own
    EXPECT_EQ(openEditor(), c.string() + file);

    write(c / "x.bat");
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
    write(c / "shared.bat");
    fs::permissions(c / "shared.bat", fs::perms::others_write, fs::perm_options::add);
    fs::create_symlink("x.bat", c / "link.bat");
    fs::create_directory(c / "folder.bat");
    const std::pair<std::string, const char*> scripts[] = {
        {"none.bat", "No such file or directory"},
        {"shared.bat", "another user may have changed it"},
        {"link.bat", "Too many levels of symbolic links"},
        {"folder.bat", "Is a directory"},
    };
    for (const auto& [script, reason] : scripts) {
        EXPECT_EQ(errorOfStart("c:\\" + script),
                  "Cannot start " + (c / script).string() + ": " + reason);
    }
}
