#include "fakes.h"

using namespace fakes;

namespace {

const std::string klex = R"(c:\kelm\programs\klex.exe)";
const std::string word = R"(C:\Program Files\Microsoft Office\Office\Winword.exe)";
const std::string script = R"(c:\nwb\~kelmcon.bat)";

using Boxes = std::vector<FakeRuntime::Box>;

struct Spelling : testing::Test, Desk {
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.ExtractorPath = klex;
        state.WordProcessorPath = word;
        state.StartTab = 4;
        return open();
    }();
    tools::SpellingPanel& panel = form.spelling;
    tools::EditPanel& edit = form.edit;

    Boxes boxesAfter(forms::Button& button) {
        button.click();
        return runtime.newBoxes();
    }
};

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
    EXPECT_EQ(boxesAfter(panel.btnExtract), (Boxes{{"KLex program " + klex + settings}}));
    state.ExtractorPath.clear();
    EXPECT_EQ(boxesAfter(panel.btnExtract), (Boxes{{"KLex program " + settings}}));
    runtime.files[state.ExtractorPath = klex];
    EXPECT_EQ(boxesAfter(panel.btnExtract),
              (Boxes{{"Wordprocessing program " + word +
                      " not found. Please change the program location in the Settings menu or just "
                      "turn off 'open in wordprocessor' option on this panel."}}));
    panel.chkAutoOpen.click();
    form.compile.txtFname.Text = R"(d:\other.kel)";  // leaves its stem with the script
    EXPECT_EQ(boxesAfter(panel.btnExtract),
              (Boxes{{R"x(Kelm source code file "c:\g\longer name.kel(m)" not found)x"}}));
    for (const char* file : {R"(c:\g\longer name.kelm)", R"(c:\g\longer name.txt)", "mine.txt"}) {
        runtime.files[file];
    }
    EXPECT_EQ(boxesAfter(panel.btnExtract),
              (Boxes{{R"(Output file "c:\g\longer name.txt")" + hint}}));
    panel.chkOutputfile.click();
    panel.txtFnameO.type("mine.txt");
    EXPECT_EQ(boxesAfter(panel.btnExtract), (Boxes{{"Output file \"mine.txt\"" + hint}}));
    panel.txtFnameO.type("");
    EXPECT_EQ(boxesAfter(panel.btnExtract), Boxes{}) << "an empty name is no file";
    panel.txtFnameO.type("mine.txt");
    panel.chkOverwrite.click();
    EXPECT_EQ(boxesAfter(panel.btnExtract), Boxes{});
    EXPECT_EQ(runtime.shells, std::vector(2, FakeRuntime::Shell{1, "\"" + script + "\""}));
    EXPECT_EQ(runtime.files[script].text,
              lines(R"(c:|cd "\g\"|")" + klex + "\" LONGER~1 -OO -FF -PC  -OFmine.txt|"));
    shortPath = R"(c:\g\longer name.kelm)";  // its drive keeps no short names
    EXPECT_EQ(boxesAfter(panel.btnExtract),
              (Boxes{{R"(The file "c:\g\longer name.kelm" cannot be given to the tool: its drive )"
                      "keeps no short form of the name, and the tool would take a name with blanks "
                      "for several. Give the file a name of at most eight characters, or one "
                      "without blanks.",
                      48}}));
    EXPECT_EQ(runtime.shells.size(), 2u);
}

TEST_F(Spelling, TheEditorIsStartedDirectly) {
    const std::string missing =
        " not found. Please correct program location in Settings menu or "
        "select 'Notepad' option.";
    const std::string pfe = R"(C:\Program Files\PFE\PFE32.exe)";
    form.tbsOptions.pick(1);
    edit.txtFnameE.type(R"(c:\my games\cave.kel)");
    EXPECT_EQ(boxesAfter(edit.btnEdit), Boxes{}) << "without an editor Notepad serves";
    state.EditorPath = pfe;
    edit.optEditWith(0).click();
    EXPECT_TRUE(edit.optEditWith(1).Value) << "the editor counts when the tab is next selected";
    form.tbsOptions.pick(1);
    edit.optEditWith(0).click();
    EXPECT_EQ(boxesAfter(edit.btnEdit), (Boxes{{"Text Editor program " + pfe + missing}}));
    runtime.files[pfe];
    EXPECT_TRUE(form.pressDefault());
    EXPECT_EQ(runtime.shells,
              (std::vector<FakeRuntime::Shell>{{1, R"(notepad c:\my games\cave.kel)"},
                                               {1, "\"" + pfe + R"(" "c:\my games\cave.kel")"}}));
    state.EditorPath.clear();
    EXPECT_EQ(boxesAfter(edit.btnEdit), (Boxes{{"Text Editor program " + missing}}));
    EXPECT_FALSE(runtime.files.contains(script));
}

}  // namespace
