#include <gtest/gtest.h>

#include <random>

#include "rules.h"

using namespace model;

namespace {

struct Play : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    core::AppState& state = desk.program.state;
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.GuiPlayerPath = "c:\\kelm\\programs\\winkrun.exe";
        state.ConsolePlayerPath = "c:\\kelm\\programs\\krun.exe";
        state.DosPlayerPath = "c:\\kelm\\dos\\krun.exe";
        state.StartTab = 3;
        state.PlayerChoice = 0;
        return desk.open();
    }();
    tools::PlayPanel& panel = form.play;

    /// The state as its four choices: player, recording, replay and debugger.
    std::string choices() {
        int record = 0;
        for (int i : {1, 2}) {
            if (panel.optRecord(i).Value) record = i;
        }
        return std::to_string(panel.player()) + std::to_string(record) +
               (panel.chkPlayback.Value ? "B" : "-") + (panel.chkKbug.Value ? "A" : "-");
    }

    std::array<std::function<void()>, 8> actions() {
        return {[this] { panel.optPlayer(0).click(); }, [this] { panel.optPlayer(1).click(); },
                [this] { panel.optPlayer(2).click(); }, [this] { panel.optRecord(0).click(); },
                [this] { panel.optRecord(1).click(); }, [this] { panel.optRecord(2).click(); },
                [this] { panel.chkKbug.click(); },      [this] { panel.chkPlayback.click(); }};
    }
};

// The twelve states, and the state that each action leads to, counted from 1: the three players,
// the three recordings, the debugger, the replay. An action that cannot be taken changes nothing.
const struct {
    const char* choices;
    std::array<int, 8> next;
} table[] = {
    {"00--", {1, 3, 5, 1, 9, 11, 2, 7}},     {"00-A", {2, 4, 6, 2, 2, 12, 1, 7}},
    {"10--", {1, 3, 5, 3, 9, 11, 4, 7}},     {"10-A", {2, 4, 6, 4, 4, 12, 3, 7}},
    {"20--", {1, 3, 5, 5, 9, 11, 6, 8}},     {"20-A", {2, 4, 6, 6, 6, 12, 5, 8}},
    {"10B-", {7, 7, 8, 7, 10, 7, 7, 3}},     {"20B-", {8, 7, 8, 8, 10, 8, 8, 5}},
    {"11--", {9, 9, 9, 3, 9, 11, 4, 10}},    {"11B-", {10, 10, 10, 7, 10, 10, 10, 9}},
    {"22--", {11, 11, 11, 5, 9, 11, 12, 8}}, {"22-A", {12, 12, 12, 6, 12, 12, 11, 8}},
};

TEST_F(Play, EveryActionFromEveryStateLeadsWhereTheTableSays) {
    // Walks from state to state until every action has been taken from every state.
    std::mt19937 random(7);
    const auto act = actions();
    std::array<std::array<bool, 8>, 12> taken{};
    int left = 12 * 8;
    int now = 1;
    for (int step = 0; left > 0 && step < 20000; ++step) {
        const auto action = random() % 8;
        act[action]();
        const int next = table[now - 1].next[action];
        ASSERT_EQ(choices(), table[next - 1].choices) << "S" << now << " by action " << action;
        rules::expectPlay(panel, state);
        if (!std::exchange(taken[now - 1][action], true)) --left;
        now = next;
    }
    EXPECT_EQ(left, 0);
}

TEST_F(Play, TheOptionsMakeTheCommands) {
    const auto line = [&] { return panel.txtCmdlineP.Text(); };
    const std::vector<std::string> folder = {"d:", "cd \"\\games\\\""};
    const auto in = [&](const std::string& tool) { return lines({folder[0], folder[1], tool}); };
    panel.txtFnameP.type("d:\\games\\cave.kcd");
    panel.chkKbug.click();
    panel.chkTrace.click();
    EXPECT_EQ(line(), in("\"c:\\kelm\\programs\\winkrun.exe\" cave -d -t"));
    panel.chkKbug.click();
    panel.optRecord(1).click();
    panel.chkPlayback.click();
    EXPECT_EQ(line(), in("\"c:\\kelm\\programs\\krun.exe\" cave -t -L < mygame12.log"));
    panel.txtLogfile.type("walk.log");
    EXPECT_EQ(line(), in("\"c:\\kelm\\programs\\krun.exe\" cave -t -L < walk.log"));
    panel.chkPlayback.click();
    panel.chkTrace.click();
    panel.chkSingle.click();
    panel.optRecord(2).click();
    EXPECT_EQ(line(), in("\"c:\\kelm\\dos\\krun.exe\" cave -s -L"));
    panel.chkSingle.click();
    panel.chkPlayback.click();
    runtime.shortNames["d:\\my games\\adventure.kcd"] = "d:\\MYGAME~1\\ADVENT~1.KCD";
    panel.txtFnameP.type("d:\\my games\\adventure.kcd");
    EXPECT_EQ(line(), lines({"d:", "cd \"\\my games\\\"",
                             "\"c:\\kelm\\dos\\krun.exe\" ADVENT~1 < walk.log"}));
}

TEST_F(Play, ThePlayerIsCheckedThenTheGame) {
    panel.txtFnameP.type("d:\\games\\cave.dat");
    const struct {
        std::string AppPath, message, shell;
        std::string core::AppState::*path;
    } players[] = {
        {"w.exe", "Windows GUI player program ", "1 ", &core::AppState::GuiPlayerPath},
        {"c.exe", "Windows Console player program ", "3 ", &core::AppState::ConsolePlayerPath},
        {"m.exe", "MSDOS player program ", "3 ", &core::AppState::DosPlayerPath}};
    for (int i = 0; i < 3; ++i) {
        const auto& player = players[i];
        panel.optPlayer(i).click();
        for (const std::string path : {"", "c:\\gone.exe"}) {
            state.*player.path = path;
            panel.btnPlay.click();
            EXPECT_EQ(runtime.lastBox(), player.message + path +
                                             " not found. Please check program location settings.");
        }
        state.*player.path = player.AppPath;
        runtime.files[player.AppPath];
        panel.btnPlay.click();
        EXPECT_EQ(runtime.lastBox(), "Kelm game file \"d:\\games\\cave.kcd\" not found");
        EXPECT_TRUE(runtime.shells.empty());

        runtime.files["d:\\games\\cave.kcd"];
        panel.btnPlay.click();
        EXPECT_EQ(runtime.shells.back(), player.shell + "\"c:\\nwb\\~kelmcon.bat\"");
        EXPECT_EQ(runtime.files["c:\\nwb\\~kelmcon.bat"].text,
                  lines({"d:", "cd \"\\games\\\"", "\"" + player.AppPath + "\" cave", ""}));
        runtime.shells.clear();
        runtime.files.erase("d:\\games\\cave.kcd");
    }
}

}  // namespace
