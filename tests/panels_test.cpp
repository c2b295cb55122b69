#include <random>
#include <set>

#include "rules.h"

using namespace fakes;

namespace {

const std::string kelm = R"(c:\kelm\programs\kelm.exe)";
const std::string klex = R"(c:\kelm\programs\klex.exe)";
const std::string pfe = R"(C:\Program Files\PFE\PFE32.exe)";
const std::string word = R"(C:\Program Files\Microsoft Office\Office\Winword.exe)";
const std::string tool = '"' + kelm + "\" ";
const std::string script = R"(c:\nwb\~kelmcon.bat)";

struct Panels : testing::Test, Desk {
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.CompilerPath = kelm;
        state.ExtractorPath = klex;
        state.EditorPath = pfe;
        state.WordProcessorPath = word;
        state.PlayerChoice = 0;
        return open();
    }();
    tools::EditPanel& edit = form.edit;
    tools::CompilePanel& compile = form.compile;
    tools::PlayPanel& play = form.play;
    tools::SpellingPanel& spelling = form.spelling;

    /// True if a click shows exactly one box, whose text starts so.
    bool refuses(forms::Button& button, const std::string& start) {
        button.click();
        return runtime.told(start);
    }
    /// Presses Enter. Returns the script that it starts, or an empty string.
    std::string scriptStarted(int style) {
        runtime.shells.clear();
        EXPECT_TRUE(form.pressDefault());
        const std::vector<FakeRuntime::Shell> started = {{style, '"' + script + '"'}};
        return runtime.shells == started ? runtime.files[script].text : "";
    }
};

TEST_F(Panels, TheFileNameMakesTheCommands) {
    const std::array<std::string, 4> cases[] = {
        {"c:/gam/my.kel", "", "c:|", "/gam/my"},
        {R"(é:\x.kel)", "", R"(é:|cd "\"|)", "x"},
        {"éééééééé.kel", "", "", "éééééééé"},
        {"ninechars.kel", "", "", ""},
        {"c:ninechars.kel", "c:NINECH~1.KEL", "c:|", "NINECH~1"},
        {R"(c:\data\nine chars.kel)", R"(c:\data\nine chars.kel)", R"(c:|cd "\data\"|)",
         "nine chars"},
        {"254characters", std::string(241, 'x') + "\\254chara.KEL", "", "254chara"},
        {"255characters", std::string(242, 'x') + "\\255chara.KEL", "", ""},
        {R"(c:\my games\wizardquest.kel)", R"(c:\MYGAME~1\WIZARD~1.KEL)", R"(c:|cd "\my games\"|)",
         "WIZARD~1"},
        {R"(c:\my games\wizardquest)", "", R"(c:|cd "\my games\"|)", "WIZARD~1"},
        {R"(c:\games\epistle99.kelm)", R"(c:\games\EPISTL~1.KEL)", R"(c:|cd "\games\"|)",
         "EPISTL~1"},
        {R"(c:\games\epistle99.txt)", "", R"(c:|cd "\games\"|)", "EPISTL~1"},
    };
    form.tbsOptions.pick(2);
    for (const auto& [typed, shortPath, lead, stem] : cases) {
        if (!shortPath.empty()) runtime.shortNames[typed] = shortPath;
        compile.txtFname.type(typed);
        EXPECT_EQ(compile.txtCmdline.Text(),
                  lines(lead + tool + stem + " -List -Height 0|notepad " + stem + ".lis|exit"))
            << typed;
    }
}

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

TEST_F(Panels, CompileChecksInOrderAndStarts) {
    const std::string base = R"(c:\games\longername)";
    auto& button = compile.btnCompile;
    form.tbsOptions.pick(2);
    compile.txtFname.type(base + ".txt");
    compile.optEditor(1).click();
    EXPECT_TRUE(refuses(button, "Kelm source code file \"" + base + ".kel(m)\" not found"));
    runtime.files[base + ".kelm"].changed = 10;
    runtime.files[base + ".kcd"].changed = 11;
    runtime.answer = core::Runtime::Answer::No;
    EXPECT_TRUE(refuses(button, "Game newer than Source?The current compiled game is newer"));
    runtime.files[base + ".kel"].changed = 11;  // the first of the two sources counts
    EXPECT_TRUE(refuses(button, "Text Editor program " + pfe + " not found"));
    // The viewer keeps the path that it had when it was chosen.
    runtime.files[state.EditorPath = "other.exe"];
    EXPECT_TRUE(refuses(button, "Kelm compiler program " + kelm + " not found"));
    runtime.files[kelm];
    EXPECT_TRUE(refuses(
        button, "The file \"" + base + ".kel\" cannot be given to the tool: its path has no"));
    EXPECT_FALSE(runtime.files.contains(script));

    runtime.shortNames[base + ".kel"] = base + ".kel";  // a drive without short names
    runtime.shortNames[R"(d:\my things)"] = R"(D:\MYTHIN~1)";
    compile.lstInclude.AddItem(R"(d:\my things)");
    runtime.files[base + ".kcd"].changed = 12;
    runtime.answer = core::Runtime::Answer::Yes;
    runtime.whileBoxIsOpen = [this] { spelling.txtFnameS.Text = "far too long.kel"; };
    const auto commands = [](const std::string& stem, const std::string& viewer) {
        return tool + R"(-Include "D:\MYTHIN~1" )" + stem + " -List -Height 0|\"" + viewer + "\" " +
               stem + ".lis|exit|||pause|||exit|";
    };
    for (const auto& viewer : {pfe, state.EditorPath}) {
        EXPECT_EQ(scriptStarted(1), lines(R"(c:|cd "\games\"|)" + commands("longername", viewer)));
        compile.optEditor(1).click();
    }
    runtime.newBoxes();
    for (const std::string folder : {"", R"(c:\)"}) {  // a file without a stem
        compile.txtFname.type(folder);
        EXPECT_TRUE(refuses(button, "Kelm source code file \"" + folder + ".kel(m)\" not found"));
        runtime.files[folder + ".kel"];
        EXPECT_EQ(scriptStarted(1),
                  lines((folder.empty() ? "" : R"(c:|cd "\"|)") + commands("", state.EditorPath)));
    }
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

TEST_F(Panels, PlayChecksThePlayerThenTheGameAndStartsIt) {
    form.tbsOptions.pick(3);
    const std::string tale = R"(d:\my games\adventure)";
    runtime.shortNames[tale + ".kcd"] = R"(d:\MYGAME~1\ADVENT~1.KCD)";
    play.txtFnameP.type(tale);
    play.optPlayer(1).click();
    play.chkPlayback.click();  // its file has a default name
    const struct {
        int index, style;
        std::string core::AppState::*path;
        std::string name, program, options;
    } players[] = {{2, 3, &core::AppState::DosPlayerPath, "MSDOS", "dos.exe", " < mygame12.log"},
                   {1, 3, &core::AppState::ConsolePlayerPath, "Windows Console", "con.exe", " < "},
                   {0, 1, &core::AppState::GuiPlayerPath, "Windows GUI", "gui.exe", ""}};
    for (const auto& player : players) {
        SCOPED_TRACE(player.name);
        play.optPlayer(player.index).click();
        state.*player.path = player.program;
        EXPECT_TRUE(refuses(play.btnPlay,
                            player.name + " player program " + player.program + " not found"));
        runtime.files[player.program];
        compile.txtFname.Text = player.name;  // changes the stem that the panels share
        EXPECT_TRUE(refuses(play.btnPlay, "Kelm game file \"" + tale + ".kcd\" not found"));
        runtime.files[tale + ".kcd"];
        EXPECT_EQ(scriptStarted(player.style), lines("d:|cd \"\\my games\\\"|\"" + player.program +
                                                     "\" ADVENT~1" + player.options + "|"));
        runtime.files.clear();
        if (player.index == 1) play.chkPlayback.click();
        play.txtLogfile.type("");
    }
    runtime.files["gui.exe"];
    runtime.files[runtime.shortNames["d:\\long tale.kcd"] = "d:\\long tale.kcd"];
    play.txtFnameP.type("d:\\long tale.kcd");
    EXPECT_TRUE(refuses(play.btnPlay,
                        R"(The file "d:\long tale.kcd" cannot be given to the tool: its drive)"));
}

TEST_F(Panels, TheNameOfTheOutputIsOnesOwnOrTheSources) {
    form.tbsOptions.pick(4);
    spelling.txtFnameS.type("quest.kel");
    compile.txtFname.Text = "other.kel";
    spelling.chkOutputfile.click();
    EXPECT_EQ(spelling.txtFnameO.Text(), "quest.txt") << "not another panel's stem";
    spelling.txtFnameO.type("mine.txt");
    compile.txtFname.Text = "another.kel";
    spelling.chkOutputfile.click();
    EXPECT_EQ(spelling.lblDefname.Caption(), "(Default= quest.txt)");
    spelling.txtFnameS.type("my.game.kel");
    EXPECT_EQ(spelling.lblDefname.Caption(), "(Default= my.game.txt)");
    EXPECT_EQ(spelling.txtCmdlineS.Text(),
              lines('"' + klex + "\" my.game -FF -PC|\"" + word + "\"  my.game.txt"));
    spelling.chkOutputfile.click();
    EXPECT_EQ(spelling.txtFnameO.Text(), "mine.txt") << "an entered name stays";
}

TEST_F(Panels, ExtractChecksInOrderAndStarts) {
    auto& button = spelling.btnExtract;
    form.tbsOptions.pick(4);
    std::string& shortPath = runtime.shortNames[R"(c:\g\longer name.kelm)"];
    shortPath = R"(c:\g\LON ER~1.KEL)";
    spelling.txtFnameS.type(R"(c:\g\longer name.kelm)");
    EXPECT_TRUE(refuses(button, "KLex program " + klex + " not"));
    runtime.files[klex];
    EXPECT_TRUE(refuses(button, "Wordprocessing program " + word + " not"));
    spelling.chkAutoOpen.click();
    compile.txtFname.Text = R"(d:\other.kel)";  // changes the stem that the panels share
    EXPECT_TRUE(refuses(button, R"x(Kelm source code file "c:\g\longer name.kel(m)" not)x"));
    for (const char* file : {R"(c:\g\longer name.kelm)", R"(c:\g\longer name.txt)", "mine.txt"})
        runtime.files[file];
    EXPECT_TRUE(refuses(button, R"(Output file "c:\g\longer name.txt" exists)"));
    spelling.chkOutputfile.click();
    spelling.txtFnameO.type("mine.txt");
    EXPECT_TRUE(refuses(button, "Output file \"mine.txt\" exists"));
    spelling.chkOverwrite.click();
    for (const std::string blank : {"", " "}) {
        spelling.txtFnameO.type(blank);
        EXPECT_TRUE(refuses(button, "The output file has no name."));
    }
    spelling.txtFnameO.type("mine.txt");
    shortPath = R"(c:\g\longer name.kelm)";  // a drive without short names
    EXPECT_TRUE(refuses(
        button,
        R"(The file "c:\g\longer name.kelm" cannot be given to the tool: its drive keeps)"));
    EXPECT_FALSE(runtime.files.contains(script));
    shortPath = R"(c:\g\LON ER~1.KEL)";
    EXPECT_EQ(scriptStarted(1),
              lines(R"(c:|cd "\g\"|")" + klex + "\" LON ER~1 -OO -FF -PC  -OFmine.txt|"));
}

TEST_F(Panels, TheEditorIsStartedDirectly) {
    state.EditorPath.clear();
    form.tbsOptions.pick(1);
    edit.txtFnameE.type(R"(c:\my games\cave.kel)");
    edit.btnEdit.click();  // Notepad, because no editor is set
    state.EditorPath = pfe;
    edit.optEditWith(0).click();
    EXPECT_TRUE(edit.optEditWith(1).Value) << "enabled when the tab is selected again";
    form.tbsOptions.pick(1);
    edit.optEditWith(0).click();
    EXPECT_TRUE(refuses(edit.btnEdit, "Text Editor program " + pfe + " not found"));
    runtime.files[pfe];
    EXPECT_TRUE(form.pressDefault());
    EXPECT_EQ(runtime.shells,
              (std::vector<FakeRuntime::Shell>{{1, R"(notepad c:\my games\cave.kel)"},
                                               {1, "\"" + pfe + R"(" "c:\my games\cave.kel")"}}));
}

}  // namespace
