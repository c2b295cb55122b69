#include "model.h"

using namespace model;

namespace {

const std::string klex = R"(c:\kelm\programs\klex.exe)";
const std::string word = R"(C:\Program Files\Microsoft Office\Office\Winword.exe)";
const std::string script = R"(c:\nwb\~kelmcon.bat)";

struct Spelling : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    core::AppState& state = desk.program.state;
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.ExtractorPath = klex;
        state.WordProcessorPath = word;
        state.StartTab = 4;
        return desk.open();
    }();
    tools::SpellingPanel& panel = form.spelling;
    tools::EditPanel& edit = form.edit;

    std::string boxAfter(forms::Button& button) {
        runtime.boxes.clear();
        button.click();
        EXPECT_LE(runtime.boxes.size(), 1u);
        return runtime.lastBox();
    }
};

TEST_F(Spelling, TheOptionsMakeTheCommands) {
    const std::string tool = "\"" + klex + "\" ";
    const std::string viewer = "|\"" + word + "\"  ";
    const std::string quest = R"(C:|cd "\Games\Quest\"|)" + tool + "mygame";
    panel.txtFnameS.type(R"(C:\Games\Quest\mygame.kel)");
    EXPECT_EQ(panel.txtCmdlineS.Text(), lines(quest + " -FF -PC" + viewer + "mygame.txt"));
    for (forms::Control* option : std::initializer_list<forms::Control*>{
             &panel.chkOverwrite, &panel.chkLineNum, &panel.optCodes(2), &panel.optParam(3),
             &panel.chkAutoOpen, &panel.chkOutputfile}) {
        option->click();
    }
    panel.txtFnameO.type("words.txt");
    EXPECT_EQ(panel.txtCmdlineS.Text(), lines(quest + " -OO -FR -PR -NL  -OFwords.txt"));

    runtime.shortNames[R"(D:\My Games\thelongadventure.kelm)"] = R"(D:\MYGAME~1\THELON~1.KEL)";
    panel.txtFnameS.type(R"(D:\My Games\thelongadventure.kelm)");
    panel.txtFnameO.type(R"(D:\out\words.txt)");
    panel.chkAutoOpen.click();
    EXPECT_EQ(panel.txtCmdlineS.Text(), lines(R"(D:|cd "\My Games\"|)" + tool +
                                              R"(THELON~1 -OO -FR -PR -NL  -OFD:\out\words.txt)" +
                                              viewer + R"(D:\out\words.txt)"));
}

TEST_F(Spelling, TheNameOfTheOutputIsOnesOwnOrTheSources) {
    panel.txtFnameS.type("quest.kel");
    form.compile.txtFname.Text = "other.kel";
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.txtFnameO.Text(), "quest.txt") << "whatever panel was rebuilt last";
    panel.txtFnameO.type("mine.txt");
    form.compile.txtFname.Text = "another.kel";
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.lblDefname.Caption(), "(Default= quest.txt)");
    panel.txtFnameS.type("my.game.kel");
    EXPECT_EQ(panel.lblDefname.Caption(), "(Default= my.game.txt)");
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.txtFnameO.Text(), "mine.txt") << "an earlier name stays";
}

TEST_F(Spelling, TheChecksStandInTheirOrder) {
    const std::string hint =
        " exists. If you wish to overwrite it tick the 'Overwrite existing output file' option and "
        "then click the Extract button again.";
    const std::string settings = " not found. Please check program location settings.";
    std::string& shortPath = runtime.shortNames[R"(c:\g\longer name.kelm)"];
    shortPath = R"(c:\g\LONGER~1.KEL)";
    panel.txtFnameS.type(R"(c:\g\longer name.kelm)");
    EXPECT_EQ(boxAfter(panel.btnExtract), "KLex program " + klex + settings);
    state.ExtractorPath.clear();
    EXPECT_EQ(boxAfter(panel.btnExtract), "KLex program " + settings);
    runtime.files[state.ExtractorPath = klex];
    EXPECT_EQ(boxAfter(panel.btnExtract),
              "Wordprocessing program " + word +
                  " not found. Please change the program location in the Settings menu or just "
                  "turn off 'open in wordprocessor' option on this panel.");
    panel.chkAutoOpen.click();
    form.compile.txtFname.Text = R"(d:\other.kel)";  // leaves its stem with the script
    EXPECT_EQ(boxAfter(panel.btnExtract),
              R"x(Kelm source code file "c:\g\longer name.kel(m)" not found)x");
    for (const char* file : {R"(c:\g\longer name.kelm)", R"(c:\g\longer name.txt)", "mine.txt"}) {
        runtime.files[file];
    }
    EXPECT_EQ(boxAfter(panel.btnExtract), R"(Output file "c:\g\longer name.txt")" + hint);
    panel.chkOutputfile.click();
    panel.txtFnameO.type("mine.txt");
    EXPECT_EQ(boxAfter(panel.btnExtract), "Output file \"mine.txt\"" + hint);
    panel.txtFnameO.type("");
    EXPECT_EQ(boxAfter(panel.btnExtract), "") << "an empty name is no file";
    panel.txtFnameO.type("mine.txt");
    panel.chkOverwrite.click();
    EXPECT_EQ(boxAfter(panel.btnExtract), "");
    EXPECT_EQ(runtime.shells, std::vector<std::string>(2, "1 \"" + script + "\""));
    EXPECT_EQ(runtime.files[script].text,
              lines(R"(c:|cd "\g\"|")" + klex + "\" LONGER~1 -OO -FF -PC  -OFmine.txt|"));
    shortPath = R"(c:\g\longer name.kelm)";  // its drive keeps no short names
    EXPECT_EQ(
        boxAfter(panel.btnExtract),
        R"(48 The file "c:\g\longer name.kelm" cannot be given to the tool: its drive keeps no )"
        "short form of the name, and the tool would take a name with blanks for several. Give "
        "the file a name of at most eight characters, or one without blanks.");
    EXPECT_EQ(runtime.shells.size(), 2u);
}

TEST_F(Spelling, TheEditorIsStartedDirectly) {
    const std::string missing =
        " not found. Please correct program location in Settings menu or "
        "select 'Notepad' option.";
    const std::string pfe = R"(C:\Program Files\PFE\PFE32.exe)";
    form.tbsOptions.pick(1);
    edit.txtFnameE.type(R"(c:\my games\cave.kel)");
    EXPECT_EQ(boxAfter(edit.btnEdit), "") << "without an editor Notepad serves";
    state.EditorPath = pfe;
    edit.optEditWith(0).click();
    EXPECT_TRUE(edit.optEditWith(1).Value) << "the editor counts when the tab is next selected";
    form.tbsOptions.pick(1);
    edit.optEditWith(0).click();
    EXPECT_EQ(boxAfter(edit.btnEdit), "Text Editor program " + pfe + missing);
    runtime.files[pfe];
    EXPECT_TRUE(form.pressDefault());
    EXPECT_EQ(runtime.shells,
              (std::vector<std::string>{R"(1 notepad c:\my games\cave.kel)",
                                        "1 \"" + pfe + R"(" "c:\my games\cave.kel")"}));
    state.EditorPath.clear();
    EXPECT_EQ(boxAfter(edit.btnEdit), "Text Editor program " + missing);
    EXPECT_FALSE(runtime.files.contains(script));
}

}  // namespace
