#include <random>

#include "core/settings_file.h"
#include "model.h"

using namespace model;
using core::AppState;

namespace {

const std::string ini = R"(c:\nwb\nwbw.ini)";
const std::string tmp = R"(c:\nwb\~nwbwini.tmp)";
const std::string bkp = R"(c:\nwb\nwbwini.bkp)";
const std::string beta3 = R"(c:\nwb\kelmcons.ini)";
const std::string header = "'1.0 Norvane Workbench'|";
const std::string beta3Header =
    "'Norvane Development Workbench' settings file (format version: 0.4.0)|";
// The file of a first shut-down with two paths set and two include folders added.
const std::string texts =
    R"(c:\kelm\programs\kelm.exe|c:\kelm\programs\winkrun.exe|c:\kelm\programs\krun.exe||)"
    R"(c:\kelm\programs\klex.exe||C:\Program Files\Microsoft Office\Office\Winword.exe||||)"
    R"(C:\Program Files\Plus!\Microsoft Internet\IEXPLORE.EXE|)"
    R"(C:\Program Files\Adobe\Acrobat 4.0\Reader\AcroRd32.exe|)"
    R"(C:\games\cloak.kel|C:\games\cloak.kel|C:\games\cloak.kcd||)";
const std::string sample =
    lines(header + texts + R"( 0 | 1 | 0 | 1 | 1 | 2 |C:\games\lib|c:\kelm\library)");

struct Settings : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    AppState& state = desk.program.state;

    void load(const std::string& path, const std::string& text) {
        runtime.files[path].text = text;
        core::LoadSettings(desk.program);
    }
    void expectDefaults(const std::string& message) {
        EXPECT_EQ(state.CompilerPath, R"(c:\kelm\programs\kelm.exe)");
        EXPECT_EQ(state.BrowserPath, R"(C:\Program Files\Plus!\Microsoft Internet\IEXPLORE.EXE)");
        EXPECT_EQ(state.ConsolePlayerPath + state.EditFileName + state.IncludeFolders[0], "");
        EXPECT_EQ(state.StartTab * 10 + state.PlayerChoice, 11);
        EXPECT_EQ(runtime.lastBox(), message +
                                         " (Select 'Settings' menu item to change the "
                                         "settings to your requirements.)");
    }
};

TEST_F(Settings, AFileComesBackToTheLetter) {
    load(ini, sample);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(state.ExtractorPath, R"(c:\kelm\programs\klex.exe)");
    EXPECT_EQ(state.CompileHidden, 1);
    EXPECT_EQ(state.IncludeFolders[1], R"(c:\kelm\library)");
    core::SaveSettings(desk.program);
    EXPECT_EQ(runtime.files[ini].text, sample);
    EXPECT_EQ(runtime.files[bkp].text, sample);
    EXPECT_EQ(runtime.files.size(), 2u);
}

TEST_F(Settings, TheOlderFormatIsReadAndLeftAlone) {
    const std::string old = lines(beta3Header + texts + "lib");
    load(beta3, old);
    EXPECT_EQ(runtime.lastBox(),
              "Your NWB/w settings file is for Beta Release 3. It will be saved in the new format "
              "when you close NWB/w.");
    EXPECT_EQ(state.DosPlayerPath, "") << "an empty path stays empty";
    core::SaveSettings(desk.program);
    EXPECT_EQ(runtime.files[beta3].text, old);
    EXPECT_EQ(runtime.files[ini].text, lines(header + texts + "|||| 1 | 1 |lib"))
        << "flags that nothing has set are empty lines";
}

TEST_F(Settings, WithoutAGoodFileTheDefaultsServe) {
    core::LoadSettings(desk.program);
    expectDefaults("Settings file not found so using defaults.");
    runtime.files[beta3].text = lines(beta3Header + "other.exe");
    for (const char* wrong : {"'1.0 NORVANE Workbench'\r\nx", "", "rubbish\r\n1\r\n2"}) {
        load(ini, wrong);
        expectDefaults(
            "The format of your NWB/w settings file is unknown. So default settings "
            "will be used.");
    }
}

TEST_F(Settings, DamagedFilesAreReadAsFarAsTheyGo) {
    load(ini, lines(header + texts));
    EXPECT_EQ(state.PlayFileName, R"(C:\games\cloak.kcd)");
    const struct {
        std::string flag, player, tab;
        std::optional<int> hidden;
        int choice, start;
    } cases[] = {{"2", "3", "5", 0, 1, 1},
                 {" 1 ", "0", "4", 1, 0, 4},
                 {"x", "-1", "0", 0, 1, 1},
                 {"", "", "", std::nullopt, 1, 1}};
    for (const auto& c : cases) {
        std::string text = header + texts + c.flag + "|1|1|1|" + c.player + "|" + c.tab;
        for (int folder = 0; folder < 30; ++folder)
            text += "|f";
        load(ini, lines(text));
        EXPECT_EQ(state.EditHidden, c.hidden) << c.flag;
        EXPECT_EQ(state.PlayerChoice, c.choice) << c.player;
        EXPECT_EQ(state.StartTab, c.start) << c.tab;
        EXPECT_EQ(state.IncludeFolders[19] + state.IncludeFolders[20], "f");
    }
}

TEST_F(Settings, WhateverWasTypedNoOtherFieldMoves) {
    std::mt19937 random(20020101);
    const std::string letters = "ab c,\"\r\n.\\'";
    constexpr std::string AppState::*typed[] = {&AppState::CompilerPath, &AppState::EditorPath,
                                                &AppState::ExtractFileName};
    for (int round = 0; round < 500; ++round) {
        AppState expected;
        state = {};
        for (auto field : typed) {
            for (auto n = random() % 8; n > 0; --n) {
                state.*field += letters[random() % letters.size()];
            }
            expected.*field = std::regex_replace(state.*field, std::regex("[\"\r\n]"), "");
        }
        state.IncludeFolders = {"one", "\"", "thr,ee"};
        core::SaveSettings(desk.program);
        state = {};
        core::LoadSettings(desk.program);
        for (auto field : typed)
            ASSERT_EQ(state.*field, expected.*field);
        ASSERT_EQ(state.IncludeFolders[1], "thr,ee") << "an unstorable folder cuts nothing off";
    }
    EXPECT_TRUE(runtime.boxes.empty());
}

/// The settings that a start from the disk comes up with, as a file.
std::string settingsOn(const std::map<std::string, FakeRuntime::File>& disk) {
    Desk desk;
    desk.runtime.files = disk;
    core::LoadSettings(desk.program);
    core::SaveSettings(desk.program);
    return desk.runtime.files[ini].text;
}

/// A run of the whole program whose user turns to the tab Spelling. True if it could load.
bool work(FakeRuntime& runtime) {
    FakeToolkit toolkit;
    console::Workbench workbench(runtime, toolkit);
    workbench.start();
    const bool loaded = runtime.boxes.empty() || runtime.boxes.back().flags != 48 ||
                        runtime.lastBox().starts_with("48 NWB/w cannot write");
    forms::Application& application = workbench.application();
    application.Forms(0).keyPress('x');
    dynamic_cast<console::frmConsole&>(application.Forms(0)).tbsOptions.pick(4);
    application.Forms(0).close();
    EXPECT_TRUE(toolkit.ended);
    return loaded;
}

TEST_F(Settings, AFailureOrKillAtAnyCallOfARunLosesNothing) {
    const FakeRuntime::File older{lines(beta3Header + texts + "lib")};
    const std::map<std::string, FakeRuntime::File> disks[] = {
        {{ini, {sample}}, {bkp, older}},
        {{tmp, {sample}}, {bkp, older}},  // a save was cut off
        {{beta3, older}, {bkp, older}},   // the settings file was taken away
        {}};
    FakeRuntime bare;
    work(bare);
    for (const auto& disk : disks) {
        const std::string before = settingsOn(disk);
        FakeRuntime good;
        good.files = disk;
        EXPECT_TRUE(work(good));
        const std::string after = good.files[ini].text;
        EXPECT_NE(after.find(" 4 \r\n"), std::string::npos);
        for (int call = 1; call <= good.calls; ++call) {
            FakeRuntime killed;
            killed.files = disk;
            killed.killAt = call;
            EXPECT_THROW(work(killed), FakeRuntime::Killed);
            const std::string left = settingsOn(killed.files);
            EXPECT_TRUE(left == before || left == after) << call;

            FakeRuntime runtime;
            runtime.files = disk;
            runtime.failAt = call;
            const bool loaded = work(runtime);
            ASSERT_EQ(std::count_if(runtime.boxes.begin(), runtime.boxes.end(),
                                    [](const auto& box) { return box.flags == 48; }),
                      1);
            EXPECT_TRUE(loaded || runtime.files[ini].text == bare.files[ini].text) << "no half";
            runtime.failAt = runtime.calls + 50;  // while the next save writes
            work(runtime);
            const std::string now = settingsOn(runtime.files);
            // What could not be read stays in the backup, or in the older format's file.
            const bool kept = before == settingsOn({{ini, runtime.files[bkp]}}) ||
                              runtime.files[beta3].text == older.text;
            EXPECT_TRUE(now == after || (loaded ? now == before : kept)) << call;
        }
    }
}

}  // namespace
