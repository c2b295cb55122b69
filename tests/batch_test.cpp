#include <gtest/gtest.h>

#include <QCoreApplication>
#include <chrono>
#include <sstream>
#include <thread>

#include "linux_desktop.h"
#include "platform/linux/batch_interpreter.h"
#include "platform/linux/linux_runtime.h"
#include "platform/linux/terminal.h"

using namespace platform;
using namespace std::literals;

namespace {

using Words = std::vector<std::string>;

class Batch : public LinuxDesktop {
  protected:
    Batch() {
        setenv("NWBW_ECHO", (home / "echo").c_str(), 1);
        setenv("PATH", (home / "bin").c_str(), 1);
        fs::create_directories(c / "kelm");
        fs::copy_file(NWBW_ECHO_CHILD, c / "kelm/tool.exe");
        fs::create_directories(home / "bin");
    }
    ~Batch() override { setenv("PATH", path.c_str(), 1); }

    bool run(const std::string& script) {
        std::istringstream in;
        std::ostringstream out;
        WindowsDisk disk(Drives::ofUser());
        const bool done = BatchInterpreter(disk, in, out).run(script);
        shown = out.str();
        return done;
    }
    [[nodiscard]] std::string echoed() const { return contentOf(home / "echo"); }
    /// What a program started apart has echoed, once it has.
    [[nodiscard]] std::string echoedLater() const {
        for (int tries = 0; tries < 500 && !echoed().ends_with('\n'); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return echoed();
    }

    const std::string path = std::getenv("PATH");
    const std::string tool = "\"c:\\kelm\\tool.exe\" ";
    std::string shown;
};

}  // namespace

TEST(CommandLine, PartsWords) {
    const std::tuple<const char*, Words, const char*, const char*> cases[] = {
        {"\"c:\\my tools\\k.exe\" cave -Pack",
         {"c:\\my tools\\k.exe", "cave", "-Pack"},
         nullptr,
         "cave -Pack"},
        {"k -OF\"a b\".txt  \"\" x", {"k", "-OFa b.txt", "", "x"}, nullptr, "-OFa b.txt   x"},
        {"k cave<walk.log -d", {"k", "cave", "-d"}, "walk.log", "cave<walk.log -d"},
        {"k < \"my walk.log\"", {"k"}, "my walk.log", "< my walk.log"},
        {"k \"<\" a&b|c>d%e%^f", {"k", "<", "a&b|c>d%e%^f"}, nullptr, "< a&b|c>d%e%^f"},
        {"k <", {"k"}, "", "<"},
        {"notepad  c:\\my games\\cave.kel ",
         {"notepad", "c:\\my", "games\\cave.kel"},
         nullptr,
         "c:\\my games\\cave.kel"},
        {" ", {}, nullptr, ""},
    };
    for (const auto& [text, words, input, rest] : cases) {
        const CommandLine line(text);
        EXPECT_EQ(line.words, words) << text;
        EXPECT_EQ(line.input.value_or("none"), input != nullptr ? input : "none") << text;
        EXPECT_EQ(line.rest, rest) << text;
    }
}

TEST(BatchScript, TellsLinesApart) {
    std::string kinds;
    std::string folders;
    for (const BatchLine& line : parseBatch("c:\r\ncd \"\\my games\\\"\r\ncd ..\nCD\\x\n\r\n"
                                            "cdplayer x\r\n\"cd\" y\nk x\r\n Pause \r\nEXIT")) {
        kinds += "DFPXC"[static_cast<int>(line.kind)];
        if (!line.folder.empty()) folders += line.folder + '|';
    }
    EXPECT_EQ(kinds, "DFFFCCCPX");
    EXPECT_EQ(folders, "\\my games\\|..|\\x|");
}

TEST_F(Batch, GivesNativeToolsTheNamesOfTheHost) {
    write(c / "My Games/wizardquest.kel");
    write(c / "My Games/Cave.kel");
    write(c / "My Games/iso.kel");
    write(c / "kelm/standard library/x");
    write(d / "out/x");
    const std::string games = c / "My Games";
    const std::pair<std::string, std::string> cases[] = {
        {"WIZARD~1 -Pack", "[wizardquest][-Pack]"},
        {"WIZARD~1.lis wizard~1.KEL", "[wizardquest.lis][wizardquest.kel]"},
        {"-Include \"c:\\kelm\\STANDA~1\" cave.KEL",
         "[-Include][" + (c / "kelm/standard library").string() + "][Cave.kel]"},
        {"-OFD:\\out\\words.txt", "[-OF" + (d / "out/words.txt").string() + "]"},
        {"-OF..\\kelm\\w.txt", "[-OF" + (c / "kelm/w.txt").string() + "]"},
        {"-OFWIZARD~1.txt", "[-OFwizardquest.txt]"},
        {"-OFd:\\..\\out\\w.txt", "[-OF" + (d / "out/w.txt").string() + "]"},
        {"sub\\x.txt", "[" + games + "/sub/x.txt]"},
        {"cave -CharSet ISO", "[Cave][-CharSet][ISO]"},
        {"-Height 0 https://x.y/z /d NOBODY~1 \"\"", "[-Height][0][https://x.y/z][/d][NOBODY~1][]"},
        {"/MYGAME~1/new /kelm/none /kelm " + home.string(), "[" + games + "/new][" + c.string() +
                                                                "/kelm/none][" + c.string() +
                                                                "/kelm][" + home.string() + "]"},
    };
    for (const auto& [words, echo] : cases) {
        fs::remove(home / "echo");
        EXPECT_TRUE(run("c:\ncd \"\\my games\\\"\n" + tool + words + " < WIZARD~1.KEL"));
        EXPECT_EQ(echoed(), games + echo + '\n') << words << shown;
    }
}

TEST_F(Batch, GivesWindowsProgramsLongNamesThroughWine) {
    write(c / "my games/wizardquest.kel");
    write(c / "my games/a\\..\\..\\x.kel");
    program(c / "kelm/krun.exe", "MZ");
    const std::string line =
        "cd \"\\my games\"\n\"c:\\kelm\\krun.exe\" WIZARD~1 c:\\MYGAME~1\\x A____X~1.KEL -d";
    EXPECT_FALSE(run(line));
    EXPECT_NE(shown.find("c:\\kelm\\krun.exe is a Windows program, and Wine is not installed."),
              std::string::npos);
    fs::copy_file(NWBW_ECHO_CHILD, home / "bin/wine");
    EXPECT_TRUE(run(line + " < wizardquest.kel"));
    EXPECT_EQ(echoed(),
              (c / "my games").string() +
                  "[c:\\kelm\\krun.exe][wizardquest][c:\\my games\\x][A____X~1.KEL][-d]\n");
}

TEST_F(Batch, KeepsEachDrivesFolder) {
    fs::create_directories(c / "games");
    fs::create_directories(d / "tales/old");
    EXPECT_TRUE(run("cd games\nd:\ncd tales\ncd old\nC:\n" + tool + "1\nd:\n" + tool +
                    "2\ncd c:\\kelm\n" + tool + "3\nc:\n" + tool + "4\nexit\n" + tool + "5"));
    EXPECT_EQ(echoed(), (c / "games").string() + "[1]\n" + (d / "tales/old").string() + "[2]\n" +
                            (d / "tales/old").string() + "[3]\n" + (c / "kelm").string() + "[4]\n");
    EXPECT_NE(shown.find("\nD:\\tales\\old>cd c:\\kelm\n"), std::string::npos) << shown;
}

TEST_F(Batch, TellsWhatIsMissing) {
    write(c / "plain.txt", "text");
    program(c / "tool",
            "\x7f"
            "ELF");
    fs::permissions(c / "tool", fs::perms::owner_read);
    fs::copy_file(NWBW_ECHO_CHILD, c / "lookalike");
    setenv("PATH", ((home / "bin").string() + "::.:").c_str(), 1);
    const std::string last = '\n' + tool + "last";
    const std::tuple<std::string, const char*, bool> cases[] = {
        {"q:", "Cannot change to q:", false},
        {"cd \"\\none\\\"", "Cannot change to \\none\\: No such file or directory", false},
        {"cd d:\\none", "Cannot change to d:\\none", false},
        {"\"c:\\none.exe\" x", "Cannot start c:\\none.exe: there is no such program", true},
        {"none x", "Cannot start none: there is no such program on the search path", true},
        {"\"\" x", "Cannot start a program: none is named", true},
        {"c:\\plain.txt", "Cannot start c:\\plain.txt: it is no program", true},
        {"notepad x", "No text editor was found. Install one", true},
        {tool + "q:\\x", "Cannot start c:\\kelm\\tool.exe q:\\x: there is no such place.", true},
        {tool + "-OFq:\\x", "Cannot start c:\\kelm\\tool.exe q:\\x: there is no such place.", true},
        {"notepad \\\\server\\x", "Cannot start notepad \\\\server\\x: there is no such place",
         true},
        {tool + "x < none.log", "cannot read none.log: No such file or directory", true},
        {tool + "x <", "no file is named", true},
        {tool + "x < \\", "cannot read \\: It is no ordinary file", true},
        {tool + "x\0y"s, "a word holds a NUL byte", true},
        {"c:\\kelm\\..\\..\\bin\\ls x", "Cannot start", true},
        {"\xc2\x9b"
         "2J x",
         "Cannot start ?2J", true},
        {"lookalike x", "there is no such program on the search path", true},
    };
    for (const auto& [line, message, goesOn] : cases) {
        fs::remove(home / "echo");
        EXPECT_FALSE(run(line + last)) << line;
        EXPECT_NE(shown.find(message), std::string::npos) << shown;
        EXPECT_EQ(echoed(), goesOn ? c.string() + "[last]\n" : "") << line;
    }
}

TEST_F(Batch, OpensTheDesktopsEditorForNotepad) {
    write(home / "mimeapps.list", "[Default Applications]\ntext/plain=no.desktop;ed.desktop;\n");
    write(home / "applications/ed.desktop",
          "[Desktop Action new]\nExec=ed -new\n[Desktop Entry]\nExec=ed -x %U\nTerminal=true\n");
    fs::copy_file(NWBW_ECHO_CHILD, home / "bin/ed");
    write(c / "wizardquest.kel");
    EXPECT_TRUE(run("Notepad my cave.lis\nnotepad WIZARD~1.lis"));
    EXPECT_EQ(echoed(), c.string() + "[-x][file://" + c.string() + "/my%20cave.lis]\n" +
                            c.string() + "[-x][file://" + c.string() + "/wizardquest.lis]\n");
}

TEST_F(Batch, WaitsForItsReaderWhereTheLastProgramFailed) {
    program(home / "bin/bad", "#!/bin/sh\nexit 3\n");
    program(home / "bin/ill", "#!/bin/sh\nkill -11 $$\n");
    program(home / "bin/good");
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"good", "", true},
        {"bad", "bad ended with exit code 3.", false},
        {"bad\ngood", "", true},
        {"bad\ncd \\\nexit", "bad ended with exit code 3.", false},
        {"ill", "ill was ended by signal 11 (Segmentation fault).", false},
        {"bad\npause", "", true},
        {"none\npause\ngood", "", true},
    };
    for (const auto& [script, message, done] : cases) {
        EXPECT_EQ(run(script), done) << script;
        EXPECT_EQ(shown.find(" ended with") == std::string::npos &&
                      shown.find(" was ended") == std::string::npos,
                  done)
            << shown;
        EXPECT_NE(shown.find(message), std::string::npos) << shown;
    }
}

TEST_F(Batch, GivesEachTerminalItsWords) {
    using Options = std::vector<std::string>;
    const std::string plain = "/a b/$x";
    const std::tuple<const char*, Options, Options> cases[] = {
        {"xterm", {"-maximized", "-e"}, {plain, "it's"}},
        {"xfce4-terminal", {"--disable-server", "--maximize", "-x"}, {plain, "it's"}},
        {"konsole", {"--fullscreen", "-e"}, {"env", "-S/a' 'b/\\$x\\_it\\'s"}},
        {"tilix", {"--new-process", "--maximize", "-e"}, {"'/a b/$x' 'it'\\''s'"}},
        {"qterminal", {"-e"}, {"env \"-S/a' 'b/\\$x\\_it\\'s\""}},
        {"alacritty", {"-o", "window.startup_mode=\"Maximized\"", "-e"}, {plain, "it's"}},
        {"kitty", {"--start-as=maximized"}, {plain, "it's"}},
        {"other", {"-e"}, {plain, "it's"}},
    };
    for (const auto& [name, options, tail] : cases) {
        program(home / "bin" / name);
        setenv("TERMINAL", (name + " --my \"own $x\"\\ 'a \"b'"s).c_str(), 1);
        Words expected = {home / "bin" / name, "--my", "own $x a \"b"};
        expected.insert(expected.end(), options.begin(), options.end());
        expected.insert(expected.end(), tail.begin(), tail.end());
        EXPECT_EQ(inTerminal({plain, "it's"}, true).words, expected) << name;
    }
    // Debian's alternative leads to a wrapper that knows the options of xterm alone.
    unsetenv("TERMINAL");
    program(home / "bin/mate-terminal");
    program(home / "bin/mate-terminal.wrapper");
    fs::create_symlink("mate-terminal.wrapper", home / "bin/x-terminal-emulator");
    EXPECT_EQ(inTerminal({plain}, false).words,
              (Words{home / "bin/mate-terminal", "--disable-factory", "-x", plain}));
}

TEST_F(Batch, TellsOfATerminalThatFailsAtOnce) {
    int count = 1;
    std::string name = "tests";
    char* arguments[] = {name.data(), nullptr};
    const QCoreApplication application(count, arguments);
    std::string told;
    LinuxRuntime runtime(
        [&](const std::string& text, int flags, const std::string&) {
            told = text;
            EXPECT_EQ(flags, core::Runtime::exclamation);
            return core::Runtime::Answer::Ok;
        },
        NWBW_PROGRAMS);
    write(c / "x.bat");
    program(home / "bin/xterm", "#!/bin/sh\nexit 7\n");
    runtime.rtcShell("c:\\x.bat", 1);
    EXPECT_EQ(told, "");
    for (int tries = 0; tries < 500 && told.empty(); ++tries) {
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(10ms);
    }
    EXPECT_EQ(told, "The terminal " + (home / "bin/xterm").string() +
                        " ended with exit code 7. Name another one in the environment variable "
                        "TERMINAL.");
}

TEST_F(Batch, ShellOpensEditorsAndTellsWhatIsMissing) {
    LinuxRuntime runtime(nullptr, NWBW_PROGRAMS);
    setenv("VISUAL", "ed -w", 1);
    fs::copy_file(NWBW_ECHO_CHILD, home / "bin/ed");
    fs::copy_file(NWBW_ECHO_CHILD, home / "bin/xterm");
    runtime.rtcShell("notepad c:\\my games\\cave.kel", 3);
    EXPECT_EQ(echoedLater(), c.string() + "[-maximized][-e][" + (home / "bin/ed").string() +
                                 "][-w][" + (c / "my games/cave.kel").string() + "]\n");
    fs::remove(home / "bin/xterm");
    write(c / "~kelmcon.bat");
    EXPECT_THROW(runtime.rtcShell("\"c:\\~kelmcon.bat\"", 1), core::RuntimeError);
}
