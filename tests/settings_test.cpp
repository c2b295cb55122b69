#include <random>

#include "core/settings_file.h"
#include "model.h"

using namespace model;
using core::AppState;

namespace {

const std::string ini = R"(c:\nwb\nwbw.ini)";
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

TEST_F(Settings, AFailureAtAnyCallOfASaveLosesNothing) {
    load(ini, sample);
    runtime.files[bkp].text = "older";
    const auto disk = runtime.files;
    int failures = 0;
    for (int call = 1;; ++call) {
        runtime.files = disk;
        runtime.calls = 0;
        runtime.failAt = call;
        state.StartTab = 3;
        core::SaveSettings(desk.program);
        if (runtime.boxes.empty()) break;
        ++failures;
        EXPECT_EQ(runtime.boxes.size(), 1u);
        EXPECT_EQ(runtime.boxes[0].flags, 48);
        EXPECT_TRUE(runtime.lastBox().ends_with(" failed"));
        runtime.calls = 0;
        runtime.failAt = 15;  // while the next save writes
        core::SaveSettings(desk.program);
        runtime.boxes.clear();
        runtime.failAt = -1;
        core::LoadSettings(desk.program);  // as at the next start
        EXPECT_TRUE(runtime.boxes.empty()) << "after a failure at call " << call;
        EXPECT_TRUE(state.StartTab == 2 || state.StartTab == 3);
        state.StartTab = 2;
        core::SaveSettings(desk.program);
        EXPECT_EQ(runtime.files[ini].text, sample) << "whole, old or new";
    }
    EXPECT_GT(failures, 30);
    EXPECT_TRUE(runtime.files[ini].text.find(" 3 \r\n") != std::string::npos);
}

TEST_F(Settings, AFailureAtAnyCallOfALoadIsToldAndTheRestHasDefaults) {
    runtime.files[ini].text = sample;
    for (int call = 1; call < 30; ++call) {
        runtime.boxes.clear();
        runtime.calls = 0;
        runtime.failAt = call;
        core::LoadSettings(desk.program);
        ASSERT_EQ(runtime.boxes.size(), 1u);
        EXPECT_EQ(runtime.boxes[0].flags, 48);
        EXPECT_EQ(state.CompilerPath, R"(c:\kelm\programs\kelm.exe)");
        EXPECT_EQ(state.ExtractorPath.empty(), call <= 9) << call;
    }
}

}  // namespace
