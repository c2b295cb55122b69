#include <random>

#include "rules.h"

using namespace fakes;

namespace {

struct Play : testing::Test, Desk {
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.GuiPlayerPath = R"(c:\kelm\programs\winkrun.exe)";
        state.ConsolePlayerPath = R"(c:\kelm\programs\krun.exe)";
        state.DosPlayerPath = R"(c:\kelm\dos\krun.exe)";
        state.StartTab = 3;
        state.PlayerChoice = 0;
        return open();
    }();
    tools::PlayPanel& panel = form.play;

    /// The state as its four choices: player, recording, replay and debugger.
    std::array<int, 4> choices() {
        return {panel.player(), panel.optRecord(1).Value + 2 * panel.optRecord(2).Value,
                panel.chkPlayback.Value, panel.chkKbug.Value};
    }
};

// The twelve states, and the state that each action leads to, counted from 1: the three players,
// the three recordings, the debugger, the replay. An action that cannot be taken changes nothing.
const struct {
    std::array<int, 4> choices;
    int next[8];
} table[] = {
    {{0, 0, 0, 0}, {1, 3, 5, 1, 9, 11, 2, 7}},     {{0, 0, 0, 1}, {2, 4, 6, 2, 2, 12, 1, 7}},
    {{1, 0, 0, 0}, {1, 3, 5, 3, 9, 11, 4, 7}},     {{1, 0, 0, 1}, {2, 4, 6, 4, 4, 12, 3, 7}},
    {{2, 0, 0, 0}, {1, 3, 5, 5, 9, 11, 6, 8}},     {{2, 0, 0, 1}, {2, 4, 6, 6, 6, 12, 5, 8}},
    {{1, 0, 1, 0}, {7, 7, 8, 7, 10, 7, 7, 3}},     {{2, 0, 1, 0}, {8, 7, 8, 8, 10, 8, 8, 5}},
    {{1, 1, 0, 0}, {9, 9, 9, 3, 9, 11, 4, 10}},    {{1, 1, 1, 0}, {10, 10, 10, 7, 10, 10, 10, 9}},
    {{2, 2, 0, 0}, {11, 11, 11, 5, 9, 11, 12, 8}}, {{2, 2, 0, 1}, {12, 12, 12, 6, 12, 12, 11, 8}}};

TEST_F(Play, EveryActionFromEveryStateLeadsWhereTheTableSays) {
    forms::Control* actions[] = {&panel.optPlayer(0), &panel.optPlayer(1), &panel.optPlayer(2),
                                 &panel.optRecord(0), &panel.optRecord(1), &panel.optRecord(2),
                                 &panel.chkKbug,      &panel.chkPlayback};
    // Goes from state to state until every action has been taken from every state.
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

TEST_F(Play, ThePlayerIsCheckedThenTheGame) {
    const auto refuses = [this](const std::string& start, int flags = 0) {
        panel.btnPlay.click();
        return runtime.told(start, flags);
    };
    const std::string tale = R"(d:\my games\adventure)";
    const std::string game = tale + ".kcd";
    runtime.shortNames[game] = R"(d:\MYGAME~1\ADVENT~1.KCD)";
    panel.txtFnameP.type(tale);
    panel.optPlayer(1).click();
    panel.chkPlayback.click();  // the name of its file is there to begin with
    const struct {
        std::string name;
        int style;
        std::string core::AppState::*path;
        std::string options;
    } players[] = {{"MSDOS player ", 3, &core::AppState::DosPlayerPath, " < mygame12.log"},
                   {"Windows Console player ", 3, &core::AppState::ConsolePlayerPath, ""},
                   {"Windows GUI player ", 1, &core::AppState::GuiPlayerPath, ""}};
    for (int i = 0; i < 3; ++i) {
        const auto& player = players[i];
        panel.optPlayer(2 - i).click();
        for (const std::string path : {"", "gone.exe"}) {
            state.*player.path = path;
            EXPECT_TRUE(refuses(player.name + "program " + path + " not found"));
        }
        runtime.files[state.*player.path = "krun.exe"];
        form.compile.txtFname.Text = std::to_string(i);  // leaves its stem with the script
        EXPECT_TRUE(refuses("Kelm game file \"" + game + "\" not found"));
        runtime.files[game];
        EXPECT_TRUE(form.pressDefault());
        EXPECT_EQ(runtime.shells.back(),
                  (FakeRuntime::Shell{player.style, R"("c:\nwb\~kelmcon.bat")"}));
        EXPECT_EQ(runtime.files[R"(c:\nwb\~kelmcon.bat)"].text,
                  lines(R"(d:|cd "\my games\"|"krun.exe" ADVENT~1)" + player.options + "|"));
        runtime.files.clear();
        if (i == 0) panel.chkPlayback.click();
    }
    runtime.files["krun.exe"];
    runtime.files[runtime.shortNames["d:\\long tale.kcd"] = "d:\\long tale.kcd"];
    panel.txtFnameP.type("d:\\long tale.kcd");
    EXPECT_TRUE(refuses(R"(The file "d:\long tale.kcd" cannot be )", 48));
    EXPECT_EQ(runtime.shells.size(), 3u);
}

}  // namespace
