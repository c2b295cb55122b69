#include <gtest/gtest.h>

#include <random>

#include "core/settings_file.h"
#include "model.h"

using namespace model;
using core::AppState;

namespace {

const std::string ini = "c:\\nwb\\nwbw.ini";
const std::string bkp = "c:\\nwb\\nwbwini.bkp";
const std::string tmp = "c:\\nwb\\~nwbwini.tmp";
const std::string beta3 = "c:\\nwb\\kelmcons.ini";
const std::string header = "'1.0 Norvane Workbench'";

// The file of a first shut-down with two paths set and two include folders added.
const std::vector<std::string> sample = {
    header,
    "c:\\kelm\\programs\\kelm.exe",
    "c:\\kelm\\programs\\winkrun.exe",
    "c:\\kelm\\programs\\krun.exe",
    "",
    "c:\\kelm\\programs\\klex.exe",
    "",
    "C:\\Program Files\\Microsoft Office\\Office\\Winword.exe",
    "",
    "",
    "",
    "C:\\Program Files\\Plus!\\Microsoft Internet\\IEXPLORE.EXE",
    "C:\\Program Files\\Adobe\\Acrobat 4.0\\Reader\\AcroRd32.exe",
    "C:\\games\\cloak.kel",
    "C:\\games\\cloak.kel",
    "C:\\games\\cloak.kcd",
    "",
    " 0 ",
    " 1 ",
    " 0 ",
    " 1 ",
    " 1 ",
    " 2 ",
    "C:\\games\\lib",
    "c:\\kelm\\library"};

struct Settings : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    AppState& state = desk.program.state;

    void load(const std::string& path, const std::vector<std::string>& texts) {
        runtime.files[path].text = lines(texts);
        core::LoadSettings(desk.program);
    }
    void expectDefaults() {
        EXPECT_EQ(state.CompilerPath, "c:\\kelm\\programs\\kelm.exe");
        EXPECT_EQ(state.WordProcessorPath, sample[7]);
        EXPECT_EQ(state.BrowserPath, sample[11]);
        EXPECT_EQ(state.ConsolePlayerPath + state.EditFileName + state.IncludeFolders[0], "");
        EXPECT_EQ(state.StartTab, 1);
        EXPECT_EQ(state.PlayerChoice, 1);
    }
};

TEST_F(Settings, AFileComesBackToTheLetter) {
    load(ini, sample);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(state.ExtractorPath, "c:\\kelm\\programs\\klex.exe");
    EXPECT_EQ(state.CompileHidden, 1);
    EXPECT_EQ(state.StartTab, 2);
    EXPECT_EQ(state.IncludeFolders[1], "c:\\kelm\\library");
    core::SaveSettings(desk.program);
    EXPECT_EQ(runtime.files[ini].text, lines(sample));
    EXPECT_EQ(runtime.files[bkp].text, lines(sample));
    EXPECT_FALSE(runtime.files.contains(tmp));
}

TEST_F(Settings, TheOlderFormatIsReadAndLeftAlone) {
    std::vector<std::string> old = {
        "'Norvane Development Workbench' settings file (format version: 0.4.0)"};
    old.insert(old.end(), sample.begin() + 1, sample.begin() + 17);
    old.emplace_back("c:\\kelm\\library");
    load(beta3, old);
    ASSERT_EQ(runtime.boxes.size(), 1u);
    EXPECT_EQ(runtime.lastBox(),
              "Your NWB/w settings file is for Beta Release 3. It will be saved in the new format "
              "when you close NWB/w.");
    EXPECT_EQ(state.PlayFileName, "C:\\games\\cloak.kcd");
    EXPECT_EQ(state.DosPlayerPath, "") << "an empty path stays empty";
    EXPECT_EQ(state.EditHidden, std::nullopt);
    EXPECT_EQ(state.IncludeFolders[0], "c:\\kelm\\library");
    core::SaveSettings(desk.program);
    EXPECT_EQ(runtime.files[beta3].text, lines(old));
    EXPECT_NE(runtime.files[ini].text.find("\r\n\r\n\r\n\r\n\r\n 1 \r\n 1 \r\nc:\\kelm\\library"),
              std::string::npos)
        << "flags that nothing has set are empty lines";
}

TEST_F(Settings, WithoutAGoodFileTheDefaultsServe) {
    core::LoadSettings(desk.program);
    expectDefaults();
    EXPECT_EQ(runtime.lastBox(),
              "Settings file not found so using defaults. (Select 'Settings' menu item to change "
              "the settings to your requirements.)");

    runtime.files[beta3].text =
        "'Norvane Development Workbench' settings file (format version: "
        "0.4.0)\r\nc:\\other.exe\r\n";
    for (const char* wrong : {"'1.0 NORVANE Workbench'", "", "rubbish\r\n1\r\n2"}) {
        load(ini, {wrong, "x"});
        expectDefaults();
        EXPECT_EQ(runtime.lastBox(),
                  "The format of your NWB/w settings file is unknown. So default settings will be "
                  "used. (Select 'Settings' menu item to change the settings to your "
                  "requirements.)");
    }
}

TEST_F(Settings, DamagedFilesAreReadAsFarAsTheyGo) {
    std::vector<std::string> damaged(sample.begin(), sample.begin() + 17);
    load(ini, damaged);
    EXPECT_EQ(state.PlayFileName, "C:\\games\\cloak.kcd");
    EXPECT_EQ(state.StartTab, 1);

    struct Case {
        std::string flag, player, tab;
        std::optional<int> hidden;
        int choice, start;
    };
    for (const Case& c : {Case{"2", "3", "5", 0, 1, 1}, Case{" 1 ", "0", "4", 1, 0, 4},
                          Case{"x", "-1", "0", 0, 1, 1}, Case{"", "", "", std::nullopt, 1, 1}}) {
        damaged = sample;
        damaged[17] = c.flag;
        damaged[21] = c.player;
        damaged[22] = c.tab;
        for (int folder = 0; folder < 30; ++folder)
            damaged.emplace_back("f");
        load(ini, damaged);
        EXPECT_EQ(state.EditHidden, c.hidden) << c.flag;
        EXPECT_EQ(state.PlayerChoice, c.choice) << c.player;
        EXPECT_EQ(state.StartTab, c.start) << c.tab;
        EXPECT_EQ(state.IncludeFolders[19], "f");
        EXPECT_EQ(state.IncludeFolders[20], "");
    }
}

TEST_F(Settings, WhateverWasTypedNoOtherFieldMoves) {
    std::mt19937 random(20020101);
    const std::string letters = "ab c,\"\r\n.\\'";
    const auto typed = [&] {
        std::string text;
        for (auto n = random() % 8; n > 0; --n)
            text += letters[random() % letters.size()];
        return text;
    };
    for (int round = 0; round < 500; ++round) {
        AppState before = state = {};
        for (auto field : {&AppState::CompilerPath, &AppState::EditorPath, &AppState::EditFileName,
                           &AppState::ExtractFileName}) {
            state.*field = typed();
            before.*field = state.*field;
            std::erase_if(before.*field, [](char c) { return c == '"' || c == '\r' || c == '\n'; });
        }
        state.IncludeFolders = {"one", "two", "\"", "thr,ee"};
        state.StartTab = 3;
        core::SaveSettings(desk.program);
        state = {};
        core::LoadSettings(desk.program);
        ASSERT_EQ(state.CompilerPath, before.CompilerPath);
        ASSERT_EQ(state.EditorPath, before.EditorPath);
        ASSERT_EQ(state.EditFileName, before.EditFileName);
        ASSERT_EQ(state.ExtractFileName, before.ExtractFileName);
        ASSERT_EQ(state.StartTab, 3);
        ASSERT_EQ(state.IncludeFolders[2], "thr,ee") << "an unstorable folder cuts nothing off";
    }
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Settings, AFailureAtAnyCallOfASaveLosesNothing) {
    load(ini, sample);
    runtime.files[bkp].text = "older";
    const auto disk = runtime.files;
    state.EditFileName = "c:\\new.kel";
    std::vector<std::string> changed = sample;
    changed[13] = "c:\\new.kel";

    int failures = 0;
    for (int call = 1;; ++call) {
        runtime.files = disk;
        runtime.boxes.clear();
        runtime.calls = 0;
        runtime.failAt = call;
        core::SaveSettings(desk.program);
        runtime.failAt = -1;
        if (runtime.boxes.empty()) break;
        ++failures;
        EXPECT_EQ(runtime.boxes.size(), 1u);
        EXPECT_EQ(runtime.boxes[0].flags, 48);
        EXPECT_NE(runtime.lastBox().find(" failed"), std::string::npos);
        runtime.boxes.clear();
        core::LoadSettings(desk.program);  // as at the next start
        EXPECT_TRUE(runtime.boxes.empty()) << "after a failure at call " << call;
        EXPECT_TRUE(runtime.files[ini].text == lines(sample) ||
                    runtime.files[ini].text == lines(changed));
        state.EditFileName = "c:\\new.kel";
    }
    EXPECT_GT(failures, 30);
    EXPECT_EQ(runtime.files[ini].text, lines(changed));
}

TEST_F(Settings, AFailureAtAnyCallOfALoadIsToldAndTheRestHasDefaults) {
    runtime.files[ini].text = lines(sample);
    for (int call = 1; call < 30; ++call) {
        runtime.boxes.clear();
        runtime.calls = 0;
        runtime.failAt = call;
        core::LoadSettings(desk.program);
        ASSERT_EQ(runtime.boxes.size(), 1u);
        EXPECT_EQ(runtime.boxes[0].flags, 48);
        EXPECT_EQ(state.CompilerPath, sample[1]);
        EXPECT_EQ(state.ExtractorPath, call > 9 ? sample[5] : "") << call;
    }
}

}  // namespace
