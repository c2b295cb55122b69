#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <sstream>

#include "linux_desktop.h"
#include "platform/linux/launch/batch_interpreter.h"
#include "platform/linux/launch/shell_words.h"
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
        const bool done =
            BatchInterpreter(disk, in, out, BatchInterpreter::Titles::Yes).run(script);
        shown = out.str();
        paused = in.peek() == EOF && shown.find("Press Enter to continue . . . ") != shown.npos;
        return done;
    }
    [[nodiscard]] std::string echoed() const { return contentOf(home / "echo"); }
    void putEchoChild(const std::string& name) const {
        fs::copy_file(NWBW_ECHO_CHILD, home / "bin" / name);
    }

    const std::string tool = "\"c:\\kelm\\tool.exe\" ";
    std::string shown;
    bool paused = false;
};

}  // namespace

TEST_F(Batch, GivesNativeToolsTheNamesOfTheHost) {
    for (const char* file : {"drive_c/My Games/wizardquest.kel", "drive_c/My Games/Cave.kel",
                             "drive_c/My Games/iso.kel", "drive_c/kelm/standard library/x"})
        write(c.parent_path() / file);
    write(d / "out/x");
    write(c / "My Games/my walk.kel", "east");
    const std::string games = c / "My Games";
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
    const std::tuple<std::string, const char*, bool> cases[] = {
        {"q:", "Cannot change to q:", false},
        {"cd \"\\none\\\"", "Cannot change to \\none\\: No such file or directory", false},
        {"cd d:\\none", "Cannot change to d:\\none", false},
        {"\"c:\\none.exe\" x", "Cannot start c:\\none.exe: there is no such program", true},
        {"cdplayer", "Cannot start cdplayer: there is no such program on the search path", true},
        {"\"\" x", "Cannot start a program: none is named", true},
        {"c:\\plain.txt", "Cannot start c:\\plain.txt: it is not a program", true},
        {"c:\\tool", "Cannot start c:\\tool: it may not be executed", true},
        {"notepad x",
         "No text editor was found. Install one, for example mousepad or nano, or name", true},
        {tool + "q:\\x", "Cannot start c:\\kelm\\tool.exe q:\\x: there is no such place.", true},
        {tool + "-OFq:\\x", "Cannot start c:\\kelm\\tool.exe q:\\x: there is no such place.", true},
        {tool + "-OF\\\\s\\x", "tool.exe \\\\s\\x: there is no such place.", true},
        {"notepad \\\\s\\x", "Cannot start notepad \\\\s\\x: there is no such place", true},
        {tool + "x < none.log", "cannot read none.log: No such file or directory", true},
        {tool + "x < q:\\y", "cannot read q:\\y: No such drive", true},
        {tool + "x <", "no file is named", true},
        {tool + "x < \\", "cannot read \\: It is not an ordinary file", true},
        {tool + "x\0y"s, "a word holds a NUL byte", true},
        {"\302\2332J x", "Cannot start ?2J", true},
    };
    for (const auto& [line, message, goesOn] : cases) {
        EXPECT_FALSE(run(line + last)) << line;
        EXPECT_NE(shown.find(message), std::string::npos) << shown;
        EXPECT_EQ(echoed(), goesOn ? c.string() + "[last]\n" : "") << line;
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
    program(home / "bin/bad", "#!/bin/sh\nexit 3\n");
    program(home / "bin/ill", "#!/bin/sh\nkill -11 $$\n");
    program(home / "bin/stop", "#!/bin/sh\nkill -2 $$\n");
    program(home / "bin/good");
    const std::pair<const char*, const char*> cases[] = {
        {"good", ""},
        {"bad", "bad ended with exit code 3.\n"},
        {"bad\ngood", ""},
        {"bad\ncd \\\nexit", "bad ended with exit code 3.\n"},
        {"ill", "ill was ended by signal 11 (Segmentation fault).\n"},
        {"stop\ngood", "Interrupted.\n"},
        {"bad\n Pause ", ""},
        {"none\npause\ngood", ""},
    };
    for (const auto& [script, message] : cases) {
        EXPECT_EQ(run(script), *message == '\0') << script;
        EXPECT_EQ(paused, std::string(script).find("ause") != std::string::npos) << script;
        EXPECT_TRUE(shown.ends_with(message) && (*message != '\0' || !shown.ends_with(".\n")))
            << shown;
    }
}

TEST_F(Batch, StaysInItsTerminalAfterAnError) {
    write(c / "x.bat", tool + "1\nnone");
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0)
        execl(NWBW_PROGRAMS "/nwbw-batch", "", "../x.bat", "kelm", (home / "nwbw").c_str(),
              nullptr);
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
    EXPECT_TRUE(seen.find("\x1b]2;") != seen.npos && seen.ends_with(" . . . ")) << seen;
}

TEST_F(Batch, GivesEachTerminalItsWords) {
    const Words command = {"/a b/$x", "it's"};
    const std::pair<Words, Words> cases[] = {
        {{"xterm -maximized -e", "lxterm -maximized -e", "uxterm -maximized -e",
          "gnome-terminal --maximize --", "xfce4-terminal --disable-server --maximize -x",
          "mate-terminal --disable-factory --maximize -x", "terminator --no-dbus --maximise -x",
          "lxterminal --no-remote --geometry=400x200 -e", "kitty --start-as=maximized",
          "alacritty -o 'window.startup_mode=\"Maximized\"' -e", "stterm -g 400x200 -e",
          "st -g 400x200 -e", "foot --maximized -e", "other -e"},
         command},
        {{"tilix --new-process --maximize -e", "sakura --maximize -x",
          "terminology --maximized -e"},
         {"'/a b/$x' 'it'\\''s'"}},
        {{"konsole --fullscreen -e"}, {"env", "-S/a' 'b/\\$x\\_it\\'s"}},
        {{"qterminal -e"}, {"env \"-S/a' 'b/\\$x\\_it\\'s\""}},
    };
    for (const auto& [starts, tail] : cases) {
        for (const std::string& start : starts) {
            Words expected = shellWords(start);
            const std::string name = std::exchange(expected[0], home / "bin" / expected[0]);
            program(expected[0]);
            setenv("TERMINAL", (name + " --my \"own $x\"\\ 'a \"b'\\;").c_str(), 1);
            expected.insert(expected.begin() + 1, {"--my", "own $x a \"b;"});
            expected.insert(expected.end(), tail.begin(), tail.end());
            EXPECT_EQ(inTerminal(command, true).words, expected) << name;
        }
    }
    EXPECT_TRUE(errorOf([] {
                    inTerminal({"a\"b"}, true);
                }).starts_with("qterminal cannot be given a name with a double quote: "));
    // Debian's alternative is a wrapper that knows only xterm's options.
    unsetenv("TERMINAL");
    program(home / "bin/mate-terminal.wrapper");
    fs::create_symlink("mate-terminal.wrapper", home / "bin/x-terminal-emulator");
    EXPECT_EQ(inTerminal({"k"}, false).words,
              (Words{home / "bin/mate-terminal", "--disable-factory", "-x", "k"}));
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
        await([&] { return echoed().ends_with('\n'); });
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
            "[ $leader = $$ ] && [ /proc/self/fd/0 -ef /dev/null ] && exit 7\n");
    runtime.rtcShell("c:\\x.bat", 1);
    EXPECT_EQ(told, "");
    await([&] {
        QCoreApplication::processEvents();
        return !told.empty();
    });
    EXPECT_EQ(told, "48 The terminal " + xterm +
                        " ended with exit code 7. Name another one in the environment variable "
                        "TERMINAL.");
    fs::remove(xterm);
    const auto errorOfStart = [&](const std::string& command) {
        return errorOf([&] { runtime.rtcShell(command, 1); });
    };
    EXPECT_TRUE(errorOfStart("c:\\x.bat").starts_with("No terminal was found."));
    EXPECT_EQ(errorOf([] { LinuxRuntime(nullptr, HostPath("/none")).rtcShell("c:\\x.bat", 1); }),
              "Cannot start c:\\x.bat: the program nwbw-batch is missing in /none");
    EXPECT_EQ(errorOfStart("c:\\none.bat"), "Cannot start c:\\none.bat: there is no such file");
}
