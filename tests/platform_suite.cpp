// What the program expects of each operation of its platform, on every system.

#ifdef _WIN32
#include "platform_suite_windows.h"
#else
#include "platform_suite_linux.h"
#endif

#include <algorithm>
#include <chrono>

#include "core/text.h"
#include "fakes.h"

namespace {

using namespace std::literals;

class Platform : public System {
  protected:
    /// Returns the path of a file or folder in `place`.
    [[nodiscard]] std::string in(const std::string& name) const { return folder + '\\' + name; }

    /// Waits for a whole line from the echo children, and returns what they wrote.
    [[nodiscard]] std::string echoed() const {
        std::string echo;
        await("the echo", [&] { return (echo = contentOf(place / "echo")).ends_with('\n'); });
        fs::remove(place / "echo");
        return echo;
    }
    /// Copies the echo child to the only folder of the search path, and returns its path.
    [[nodiscard]] std::string echoChild() const {
        setVariable("NWBW_ECHO", place / "echo");
        setSearchPath(place / "tools");
        fs::create_directories(place / "tools");
        fs::copy_file(NWBW_ECHO_CHILD, place / "tools/tool.exe");
        return in("tools\\tool.exe");
    }

    std::string box;  ///< the text of the last message
    Runtime runtime = makeRuntime([this](const std::string& text, int flags, auto& title) {
        EXPECT_EQ(title, "The Norvane Workbench");
        box = text;
        return flags == Runtime::yesNo ? Runtime::Answer::Yes : Runtime::Answer::Ok;
    });
};

/// Expects what the program relies on, from files in an empty folder.
void useFiles(core::Runtime& runtime, const std::string& folder) {
    using Mode = core::Runtime::OpenMode;
    const std::string x = folder + "\\x.tmp", y = folder + "\\y.ini", none = folder + "\\none\\x";
    for (const std::string& text : {std::string(9999, 'x'), "c:\\x y, \"2\""s}) {
        runtime.vbaFileOpen(x, Mode::Output);
        runtime.vbaPrintFile(text);
        runtime.vbaPrintFile("");
        runtime.vbaFileFlush();
        runtime.vbaFileOpen(folder + "\\X.TMP", Mode::Input);
        EXPECT_EQ(runtime.vbaInputFile(), text.substr(0, text.find(',')));
    }
    for (const char* field : {"2", ""}) {
        EXPECT_FALSE(runtime.rtcEndOfFile());
        EXPECT_EQ(runtime.vbaInputFile(), field);
    }
    EXPECT_TRUE(runtime.rtcEndOfFile());
    runtime.vbaFileClose();
    runtime.vbaNameFile(x, y);
    runtime.vbaFileOpen(x, Mode::Output);
    runtime.vbaPrintFile("late");
    runtime.vbaFileClose();
    runtime.vbaFileOpen(x, Mode::Input);
    EXPECT_EQ(runtime.vbaInputFile(), "late");
    const std::pair<std::string, const char*> names[] = {{folder + "\\X.tmp", "x.tmp"},
                                                         {y, "y.ini"},
                                                         {folder + "\\?.tmp", ""},
                                                         {folder + "\\x*", ""},
                                                         {x + '\\', ""},
                                                         {x + "\\y", ""},
                                                         {folder, ""},
                                                         {none, ""},
                                                         {"q:\\x.tmp", ""}};
    for (const auto& [path, name] : names)
        EXPECT_EQ(runtime.rtcDir(path), name) << path;
    const std::pair<std::function<void()>, std::string> failures[] = {
        {[&] { runtime.vbaNameFile(y, x); }, "Cannot rename " + y + " to " + x + ": "},
        {[&] { runtime.rtcKillFiles(none); }, "Cannot delete " + none + ": "},
        {[&] { runtime.vbaFileOpen(none, Mode::Output); }, "Cannot open " + none + ": "},
        {[&] { runtime.vbaFileOpen(none, Mode::Input); }, "Cannot open " + none + ": "},
        {[&] { runtime.rtcFileDateTime(none); }, "Cannot find " + none + ": "},
        {[&] { runtime.folders(none); }, "Cannot open " + none},
    };
    for (const auto& [operation, message] : failures) {
        const std::string error = errorOf(operation);
        EXPECT_TRUE(error.starts_with(message) && error.find(": error") == error.npos) << error;
    }
    runtime.rtcKillFiles(x);
    runtime.vbaNameFile(y, x);
    EXPECT_EQ(runtime.rtcDir(x) + runtime.rtcDir(y), "x.tmp");
}

}  // namespace

TEST_F(Platform, WorksOnFilesLikeTheOneOfTheTests) {
    useFiles(runtime, folder);
    EXPECT_EQ(std::distance(fs::directory_iterator(place), {}), 1);
    fakes::FakeRuntime fake;
    useFiles(fake, "c:\\nwb");
}

TEST_F(Platform, FindsOrdinaryFilesOnly) {
    const fs::path cave = place / u8"games/Cavé.kel";
    write(cave);
    fs::permissions(cave, fs::perms::owner_read);
    write(place / "games/secret.kel");
    const std::string hidden = hide(place / "games/secret.kel");
    write(place / u8"my games/wizardquést.kel");
    const std::string shortPath = runtime.GetShortPathName(in("my games\\wizardquést.kel"));
    EXPECT_EQ(shortPath.find(' '), std::string::npos) << shortPath;
    EXPECT_EQ(runtime.GetShortPathName(in("my games\\none.kel")), "");
    EXPECT_EQ(core::afterLast(runtime.AppPath(), '\\'), "bin");
    const std::pair<std::string, const char*> cases[] = {
        {in("games\\Cavé.kel"), "Cavé.kel"},
        {shortPath, "wizardquést.kel"},
        {"games\\Cavé.kel", "Cavé.kel"},
        {in("games\\" + hidden), ""},
        {in("games\\Cave<"), ""},
        {"", ""},
    };
    for (const auto& [path, name] : cases)
        EXPECT_EQ(runtime.rtcDir(path), name) << path;
    const std::string name = in("games\\Cavé.kel");
    const std::string error = errorOf([&] { runtime.rtcKillFiles(name); });
    EXPECT_EQ(error.starts_with("Cannot delete " + name + ": "), fs::exists(cave)) << error;
    if (!error.empty()) fs::permissions(cave, fs::perms::owner_all);
}

TEST_F(Platform, KeepsTextsAndTimesAndWaitsForOtherReaders) {
    const fs::path file = place / u8"é.tmp";
    for (const auto& [text, bytes] : texts) {
        runtime.vbaFileOpen(in("é.tmp"), Runtime::OpenMode::Output);
        runtime.vbaPrintFile(text);
        EXPECT_EQ(contentOf(file).find(bytes), std::string::npos) << "nothing yet";
        runtime.vbaFileFlush();
        runtime.vbaFileOpen(in("é.tmp"), Runtime::OpenMode::Input);
        EXPECT_EQ(contentOf(file), bytes + "\r\n");
        EXPECT_EQ(runtime.vbaInputFile(), text);
    }
    runtime.vbaFileClose();
    std::ofstream alsoOpen(file, std::ios::app);
    runtime.vbaFileOpen(in("é.tmp"), Runtime::OpenMode::Input);
    EXPECT_TRUE(alsoOpen) << "by another program that writes";
    alsoOpen.close();

    const auto changed = [&] { return runtime.rtcFileDateTime(in("é.tmp")); };
    const auto now = fs::file_time_type::clock::now();
    fs::last_write_time(file, now);
    const auto first = changed();
    EXPECT_LT(std::chrono::abs(first - std::chrono::system_clock::now()), 10s);
    fs::last_write_time(file, now + 2s);
    EXPECT_EQ(changed() - first, 2s);

    if (fs::exists("z:\\dev")) {  // under Wine
        EXPECT_EQ(runtime.drives().back(), "z:");
        runtime.vbaFileOpen("z:\\dev\\full", Runtime::OpenMode::Output);
        runtime.vbaPrintFile("lost");
        EXPECT_TRUE(errorOf([&] { runtime.vbaFileClose(); }).starts_with("Cannot write z:\\dev"));
        EXPECT_TRUE(errorOf([&] {
                        runtime.vbaFileOpen("z:\\proc\\self\\mem", Runtime::OpenMode::Input);
                    }).starts_with("Cannot read z:\\proc"));
    }
    const std::jthread heldForAWhile = hold(file, false);
    runtime.vbaNameFile(in("é.tmp"), in("ü.ini"));
    EXPECT_LT(fs::file_time_type::clock::now() - now, 2s) << "soon after it is free";
    write(place / u8"ü.ini~", "another's");
    for (const bool mayBeDeleted : {true, false}) {
        write(place / u8"ü.ini");
        const std::jthread readForAWhile = hold(place / u8"ü.ini", mayBeDeleted);
        runtime.rtcKillFiles(in("ü.ini"));
        EXPECT_FALSE(fs::exists(place / u8"ü.ini")) << "the name is free at once";
    }
    const auto kill = [&] { runtime.rtcKillFiles(in("é.tmp")); };
    const std::string absent = errorOf(kill);
    runtime.vbaFileOpen(in("é.tmp"), Runtime::OpenMode::Output);
    EXPECT_NE(errorOf(kill), absent) << "is in use, if that prevents it at all";
}

TEST_F(Platform, RunsAScriptInItsFolderAndNowhereElse) {
    const std::string child = core::quoted(echoChild());
    for (const char* lead : {"q:", "cd \"\\none\\\"", "cd \"tools\\tool.exe\\\""}) {
        write(place / "astray.BAT", std::string(lead) + "\r\n" + child + " astray\r\n");
        const std::string error = errorOf(
            [&] { runtime.rtcShell(core::quoted(in("astray.BAT")), Runtime::normalFocus); });
        EXPECT_EQ(error.starts_with("Cannot go to "), *byScript != 0) << error;
    }
    write(place / "drive.bat", folder.substr(0, 2) + "\r\n" + child + " here\r\nexit\r\n");
    runtime.rtcShell(core::quoted(in("drive.bat")), Runtime::normalFocus);
    EXPECT_EQ(echoed(), byScript + textOf(place) + "[here]\n");
    std::string games = "Spiele für été";
    while (games.size() < 240)
        games += "é";  // with the folder some 200 letters, which may be
    write(place / pathOf(games) / u8"wälk log.txt", "say hello");
    write(place / "Nor & vane (x.y)/~kelmcon.bat",
          folder.substr(0, 2) + "\r\ncd \"" + folder.substr(2) + '\\' + games + "\\\"\r\n" + child +
              " märchen -Pack \"a & b\" -OF\"x y\" < \"wälk log.txt\"\r\nexit\r\n" + child +
              "\r\n");
    runtime.rtcShell(commandOf(place / "Nor & vane (x.y)/~kelmcon.bat"), Runtime::maximisedFocus);
    EXPECT_EQ(echoed(), byScript + textOf(place / pathOf(games)) +
                            "[märchen][-Pack][a & b][-OFx y]say hello\n");
}

TEST_F(Platform, StartsPrograms) {
    const std::string child = core::quoted(echoChild());
    for (const char* name : {"planted.exe", "tool.exe", "my tools.exe"})
        fs::copy_file(NWBW_ECHO_CHILD, place / name);
    write(place / "text.exe", "no program");
    const std::string none = core::quoted(in("none.bat"));
    const std::pair<std::string, const char*> cases[] = {
        {child + " \"a märchen\"", "[a märchen]\n"},
        {commandOf(place / "my tools.exe"), "\n"},
        {bareName + " x y"s, "[x][y]\n"},
        {none, nullptr},
        {core::quoted(in("text.exe")) + " x", nullptr},
        {"planted.exe x", nullptr},
        {"\"planted.exe\" x", nullptr},
        {"", nullptr},
    };
    int style = Runtime::maximisedFocus;
    for (const auto& [command, echo] : cases) {
        style = Runtime::normalFocus + Runtime::maximisedFocus - style;  // in turn
        box.clear();
        const std::string error =
            errorOf([&, &command = command] { runtime.rtcShell(command, style); }) + box;
        EXPECT_EQ(error.empty(), echo != nullptr) << command << error;
        EXPECT_FALSE(std::regex_search(error, std::regex("%1|\" x"))) << error;
        EXPECT_TRUE(*byScript == 0 || error.empty() || error.ends_with('.')) << error;
        if (echo != nullptr) {
            EXPECT_EQ(echoed(),
                      (style == Runtime::maximisedFocus ? maximised : "") + textOf(place) + echo);
        }
    }
    if (*byScript == 0) return;
    // Another's script may contain anything.
    write(place / "see.CMD", "@tools\\tool.exe %1 > nul\r\n");
    runtime.rtcShell(core::quoted(in("see.CMD")) + " \"x y\"", Runtime::normalFocus);
    EXPECT_EQ(echoed(), byScript + textOf(place) + "[x y]\n");
}

TEST_F(Platform, NoNameOfAGameStartsOrMakesAnythingElse) {
    const std::string tool = echoChild();
    for (const char* other : {"ed", "ed.exe", "notepad.exe"})
        fs::copy_file(NWBW_ECHO_CHILD, place / "tools" / other);
    setVariable("VISUAL", "ed");
    fakes::FakeToolkit toolkit;
    forms::Application application(toolkit, [this](const std::string& text, bool) { box = text; });
    core::Program workbench{runtime};
    workbench.state.CompilerPath = tool;
    workbench.state.StartTab = 2;
    auto& form = application.load<console::frmConsole>(workbench);
    form.Show();
    const auto compile = [&](const std::string& stem) {
        const fs::path folder = place / "games" / pathOf(stem);
        write(folder / pathOf(stem + ".kel"));
        fs::remove(place / "echo");
        box.clear();
        form.compile.txtFname.type(asTyped(runtime, folder / pathOf(stem + ".kel")));
        form.compile.btnCompile.click();
        return folder;
    };
    for (const std::string& stem : ordinaryNames) {
        const fs::path game = compile(stem);
        const auto [given, listing] = wordsFor(game / pathOf(stem));
        const std::string at = byScript + textOf(game);
        const std::string expected =
            at + '[' + given + "][-List][-Height][0]\n" + at + '[' + listing + ".lis]\n";
        await(expected + box, [&] { return contentOf(place / "echo") == expected; });
        EXPECT_EQ(std::distance(fs::directory_iterator(game), {}), 1) << stem;
    }
    for (const auto& [stem, character] : refusedNames) {
        compile(stem);
        EXPECT_NE(box.find(core::quoted(character) + " in the name "), std::string::npos) << box;
        EXPECT_EQ(contentOf(place / "echo"), "");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(place / "games"), {}),
              std::ssize(ordinaryNames) + std::ssize(refusedNames));
}

TEST_F(Platform, StoresSettingsAndTitlesItsBoxes) {
    const std::string application = "Norvane Workbench Tests";
    const std::string value = "a, \"b\" = @é; 5%";
    for (const std::string& run : {"first"s, value}) {
        Runtime closed = makeRuntime(nullptr);
        for (const char* name : {"MainLeft", "MainWidth"})
            closed.rtcSaveSetting(application, "Settings", name, run);
    }
    EXPECT_EQ(runtime.rtcGetSetting(application, "Settings", "MainLeft", ""), value);
    EXPECT_EQ(runtime.rtcGetSetting(application, "Settings", "MainTop", "7"), "7");
    EXPECT_EQ(runtime.rtcMsgBox("?", Runtime::yesNo, ""), Runtime::Answer::Yes);
    constexpr std::uint32_t currentUser = 0x80000001, read = 0x20019;
    const auto key = runtime.RegOpenKeyEx(currentUser, settingsKey, read);
    ASSERT_EQ(key.has_value(), *settingsKey != 0) << "has a registry";
    if (!key) return;
    EXPECT_EQ(runtime.RegQueryValueEx(*key, "MainLeft").value().bytes, value + '\0');
    EXPECT_EQ(runtime.RegQueryValueEx(*key, "MainLeft").value().type, 1);
    EXPECT_FALSE(runtime.RegQueryValueEx(*key, "MainTop"));
    const auto consoles = runtime.RegOpenKeyEx(currentUser, "Console", read);
    const auto codePage = runtime.RegQueryValueEx(consoles.value(), "CodePage").value();
    EXPECT_EQ(std::pair(codePage.type, codePage.bytes), std::pair(4u, "\xe9\xfd\0\0"s));
    for (const int longest : {1023, 1024}) {  // beside the NUL
        runtime.rtcSaveSetting(application, "Settings", "Long", std::string(longest, 'x'));
        EXPECT_EQ(runtime.RegQueryValueEx(*key, "Long").has_value(), longest == 1023);
    }
    EXPECT_TRUE(in("").starts_with(runtime.TempPath() + "\\nwbw-tést")) << runtime.TempPath();
    const auto systems = runtime.RegOpenKeyEx(
        0x80000002, R"(SYSTEM\CurrentControlSet\Control\Session Manager\Environment)", read);
    const auto interpreter = runtime.RegQueryValueEx(systems.value(), "ComSpec").value();
    EXPECT_NE(interpreter.bytes.find("cmd.exe"), std::string::npos);
    EXPECT_TRUE(runtime.RegOpenKeyEx(0x80000002, R"(SOFTWARE\Microsoft\Shared Tools)", read));
    runtime.RegCloseKey(*key);
}

TEST_F(Platform, ListsDrivesAndFolders) {
    for (const char* file : {"tales/x", "my.games/x", "file", "été/x", "secret/x"})
        write(place / pathOf(file));
    hide(place / "secret");
    std::vector<std::string> names = runtime.folders(folder);
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"my.games", "tales", "été"}));
    EXPECT_TRUE(runtime.folders(in("tales\\")).empty());
    EXPECT_EQ(runtime.currentFolder(), folder);
    EXPECT_EQ(std::ranges::count(runtime.drives(), "c:"), 1);
    names = runtime.folders(folder.substr(0, 3));
    std::error_code notHere;
    for (const auto& entry : fs::directory_iterator(fs::path(folder).root_path(), notHere))
        EXPECT_EQ(std::ranges::count(names, textOf(entry.path().filename())), entry.is_directory());
}
