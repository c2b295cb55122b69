#include <random>
#include <set>

#include "rules.h"

using namespace fakes;

namespace {

struct Panels : testing::Test, Desk {
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.CompilerPath = "c:\\kelm.exe";
        state.ExtractorPath = "c:\\klex.exe";
        state.EditorPath = "c:\\pfe.exe";
        state.WordProcessorPath = "c:\\word.exe";
        state.PlayerChoice = 0;
        return open();
    }();
    tools::CompilePanel& compile = form.compile;
    tools::PlayPanel& play = form.play;
    tools::SpellingPanel& spelling = form.spelling;
};

TEST_F(Panels, AnOptionIsInTheCommandsExactlyWhileItIsOn) {
    for (int step = 0; step < 3 * 3; ++step) {
        const int panel = 1 + step % 3;
        form.tbsOptions.pick(panel + 1);
        for (forms::Control* control : form.picOptions(panel).allControls()) {
            SCOPED_TRACE(control->fullName() + " in step " + std::to_string(step));
            if (auto* box = dynamic_cast<forms::TextBox*>(control))
                box->type("d:\\new" + std::to_string(step) + ".x");
            else if (!control->name.starts_with("btn") && !control->name.starts_with("chkHide"))
                control->click();
            rules::expectAll(form, state, false);
        }
    }
    state.EditorPath = state.WordProcessorPath = "";
    compile.optEditor(1).Value = true;
    spelling.chkAutoOpen.Value = 1;
    for (const int tab : {4, 2})
        form.tbsOptions.pick(tab);
    EXPECT_FALSE(compile.optEditor(1).Enabled || compile.optEditor(1).Value);
    EXPECT_FALSE(spelling.chkAutoOpen.Enabled || spelling.chkAutoOpen.Value);
}

// The twelve states as player, recording, replay and debugger, and for each action the number of
// the next state, counted from 1. The actions are the three players, the three recordings, the
// debugger and the replay. A disabled one changes nothing.
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

TEST_F(Panels, EveryActionOnPlayFromEveryStateLeadsWhereTheTableSays) {
    form.tbsOptions.pick(3);
    forms::Control* actions[] = {&play.optPlayer(0), &play.optPlayer(1), &play.optPlayer(2),
                                 &play.optRecord(0), &play.optRecord(1), &play.optRecord(2),
                                 &play.chkKbug,      &play.chkPlayback};
    // Walks at random until every action has been taken in every state.
    std::mt19937 random(7);
    std::set<std::pair<int, int>> taken;
    int now = 1;
    for (int step = 0; taken.size() < 12 * 8 && step < 20000; ++step) {
        const int action = static_cast<int>(random() % 8);
        actions[action]->click();
        taken.emplace(now, action);
        const int next = table[now - 1].next[action];
        const std::array<int, 4> choices = {play.player(),
                                            play.optRecord(1).Value + 2 * play.optRecord(2).Value,
                                            play.chkPlayback.Value, play.chkKbug.Value};
        ASSERT_EQ(choices, table[next - 1].choices) << "S" << now << " by action " << action;
        rules::expectPlay(play);
        now = next;
    }
    EXPECT_EQ(taken.size(), 12u * 8u);
}

}  // namespace
