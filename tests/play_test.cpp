#include <random>

#include "rules.h"

using namespace model;

namespace {

struct Play : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    core::AppState& state = desk.program.state;
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.GuiPlayerPath = R"(c:\kelm\programs\winkrun.exe)";
        state.ConsolePlayerPath = R"(c:\kelm\programs\krun.exe)";
        state.DosPlayerPath = R"(c:\kelm\dos\krun.exe)";
        state.StartTab = 3;
        state.PlayerChoice = 0;
        return desk.open();
    }();
    tools::PlayPanel& panel = form.play;

    /// The state as its four choices: player, recording, replay and debugger.
    std::string choices() {
        const int record = panel.optRecord(1).Value ? 1 : panel.optRecord(2).Value ? 2 : 0;
        return std::to_string(panel.player()) + std::to_string(record) +
               (panel.chkPlayback.Value ? "B" : "-") + (panel.chkKbug.Value ? "A" : "-");
    }
};

// The twelve states, and the state that each action leads to, counted from 1: the three players,
// the three recordings, the debugger, the replay. An action that cannot be taken changes nothing.
const struct {
    const char* choices;
    int next[8];
} table[] = {
    {"00--", {1, 3, 5, 1, 9, 11, 2, 7}},     {"00-A", {2, 4, 6, 2, 2, 12, 1, 7}},
    {"10--", {1, 3, 5, 3, 9, 11, 4, 7}},     {"10-A", {2, 4, 6, 4, 4, 12, 3, 7}},
    {"20--", {1, 3, 5, 5, 9, 11, 6, 8}},     {"20-A", {2, 4, 6, 6, 6, 12, 5, 8}},
    {"10B-", {7, 7, 8, 7, 10, 7, 7, 3}},     {"20B-", {8, 7, 8, 8, 10, 8, 8, 5}},
    {"11--", {9, 9, 9, 3, 9, 11, 4, 10}},    {"11B-", {10, 10, 10, 7, 10, 10, 10, 9}},
    {"22--", {11, 11, 11, 5, 9, 11, 12, 8}}, {"22-A", {12, 12, 12, 6, 12, 12, 11, 8}},
};

TEST_F(Play, EveryActionFromEveryStateLeadsWhereTheTableSays) {
    forms::Control* actions[] = {&panel.optPlayer(0), &panel.optPlayer(1), &panel.optPlayer(2),
                                 &panel.optRecord(0), &panel.optRecord(1), &panel.optRecord(2),
                                 &panel.chkKbug,      &panel.chkPlayback};
    // Walks from state to state until every action has been taken from every state.
    std::mt19937 random(7);
    std::set<std::pair<int, int>> taken;
    int now = 1;
    for (int step = 0; taken.size() < 12 * 8 && step < 20000; ++step) {
        const int action = static_cast<int>(random() % 8);
        actions[action]->click();
        taken.emplace(now, action);
        const int next = table[now - 1].next[action];
        ASSERT_EQ(choices(), table[next - 1].choices) << "S" << now << " by action " << action;
        rules::expectPlay(panel, state);
        now = next;
    }
    EXPECT_EQ(taken.size(), 12u * 8u);
}

TEST_F(Play, ARecordingAndAReplayReachTheCommand) {
    runtime.shortNames[R"(d:\my games\adventure.kcd)"] = R"(d:\MYGAME~1\ADVENT~1.KCD)";
    panel.txtFnameP.type(R"(d:\my games\adventure.kcd)");
    panel.chkTrace.click();
    panel.optRecord(1).click();
    panel.chkPlayback.click();
    const std::string start = R"(d:|cd "\my games\"|"c:\kelm\programs\krun.exe" ADVENT~1 -t -L < )";
    EXPECT_EQ(panel.txtCmdlineP.Text(), lines(start + "mygame12.log"));
    panel.txtLogfile.type("walk.log");
    EXPECT_EQ(panel.txtCmdlineP.Text(), lines(start + "walk.log"));
}

TEST_F(Play, ThePlayerIsCheckedThenTheGame) {
    panel.txtFnameP.type(R"(d:\games\cave.dat)");
    const struct {
        const char *name, *style;
        std::string core::AppState::*path;
    } players[] = {{"Windows GUI player program ", "1", &core::AppState::GuiPlayerPath},
                   {"Windows Console player program ", "3", &core::AppState::ConsolePlayerPath},
                   {"MSDOS player program ", "3", &core::AppState::DosPlayerPath}};
    for (int i = 0; i < 3; ++i) {
        panel.optPlayer(i).click();
        for (const std::string path : {"", "gone.exe"}) {
            state.*players[i].path = path;
            panel.btnPlay.click();
            EXPECT_EQ(runtime.lastBox(), players[i].name + path +
                                             " not found. Please check program location settings.");
        }
        runtime.files[state.*players[i].path = "krun.exe"];
        form.compile.txtFname.Text =
            "other" + std::to_string(i);  // leaves its stem with the script
        panel.btnPlay.click();
        EXPECT_EQ(runtime.lastBox(), R"(Kelm game file "d:\games\cave.kcd" not found)");
        runtime.files[R"(d:\games\cave.kcd)"];
        EXPECT_TRUE(form.pressDefault());
        EXPECT_EQ(runtime.shells.back(),
                  players[i].style + std::string(R"( "c:\nwb\~kelmcon.bat")"));
        EXPECT_EQ(runtime.files[R"(c:\nwb\~kelmcon.bat)"].text,
                  lines(R"(d:|cd "\games\"|"krun.exe" cave|)"));
        runtime.files.clear();
    }
    const std::string tale = R"(d:\games\long tale.kcd)";
    runtime.files["krun.exe"];
    runtime.files[tale];
    panel.txtFnameP.type(runtime.shortNames[tale] = tale);
    panel.btnPlay.click();
    EXPECT_EQ(runtime.lastBox().substr(0, 45), R"(48 The file "d:\games\long tale.kcd" cannot b)");
    EXPECT_EQ(runtime.shells.size(), 3u);
}

}  // namespace
