#include "fakes.h"

using namespace fakes;

namespace {

const std::string klex = R"(c:\kelm\programs\klex.exe)";
const std::string word = R"(C:\Program Files\Microsoft Office\Office\Winword.exe)";
const std::string script = R"(c:\nwb\~kelmcon.bat)";

struct Spelling : testing::Test, Desk {
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.ExtractorPath = klex;
        state.WordProcessorPath = word;
        state.StartTab = 4;
        return open();
    }();
    tools::SpellingPanel& panel = form.spelling;
    tools::EditPanel& edit = form.edit;

    bool toldAfter(forms::Button& button, const std::string& start) {
        button.click();
        return runtime.told(start);
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
    std::string& shortPath = runtime.shortNames[R"(c:\g\longer name.kelm)"];
    shortPath = R"(c:\g\LONGER~1.KEL)";
    panel.txtFnameS.type(R"(c:\g\longer name.kelm)");
    EXPECT_TRUE(toldAfter(panel.btnExtract, "KLex program " + klex + " not"));
    state.ExtractorPath.clear();
    EXPECT_TRUE(toldAfter(panel.btnExtract, "KLex program  not found"));
    runtime.files[state.ExtractorPath = klex];
    EXPECT_TRUE(toldAfter(panel.btnExtract, "Wordprocessing program " + word + " not"));
    panel.chkAutoOpen.click();
    form.compile.txtFname.Text = R"(d:\other.kel)";  // leaves its stem with the script
    EXPECT_TRUE(
        toldAfter(panel.btnExtract, R"x(Kelm source code file "c:\g\longer name.kel(m)" not)x"));
    for (const char* file : {R"(c:\g\longer name.kelm)", R"(c:\g\longer name.txt)", "mine.txt"})
        runtime.files[file];
    EXPECT_TRUE(toldAfter(panel.btnExtract, R"(Output file "c:\g\longer name.txt" exists)"));
    panel.chkOutputfile.click();
    panel.txtFnameO.type("mine.txt");
    EXPECT_TRUE(toldAfter(panel.btnExtract, "Output file \"mine.txt\" exists"));
    panel.txtFnameO.type("");
    panel.btnExtract.click();  // an empty name is no file
    panel.txtFnameO.type("mine.txt");
    panel.chkOverwrite.click();
    panel.btnExtract.click();
    EXPECT_EQ(runtime.shells, std::vector(2, FakeRuntime::Shell{1, "\"" + script + "\""}));
    EXPECT_EQ(runtime.files[script].text,
              lines(R"(c:|cd "\g\"|")" + klex + "\" LONGER~1 -OO -FF -PC  -OFmine.txt|"));
    shortPath = R"(c:\g\longer name.kelm)";  // its drive keeps no short names
    panel.btnExtract.click();
    EXPECT_TRUE(runtime.told(
        R"(The file "c:\g\longer name.kelm" cannot be given to the tool: its drive keeps no)", 48));
    EXPECT_EQ(runtime.shells.size(), 2u);
}

TEST_F(Spelling, TheEditorIsStartedDirectly) {
    const std::string pfe = R"(C:\Program Files\PFE\PFE32.exe)";
    form.tbsOptions.pick(1);
    edit.txtFnameE.type(R"(c:\my games\cave.kel)");
    edit.btnEdit.click();  // without an editor Notepad serves
    state.EditorPath = pfe;
    edit.optEditWith(0).click();
    EXPECT_TRUE(edit.optEditWith(1).Value) << "the editor counts when the tab is next selected";
    form.tbsOptions.pick(1);
    edit.optEditWith(0).click();
    EXPECT_TRUE(toldAfter(edit.btnEdit, "Text Editor program " + pfe + " not found"));
    runtime.files[pfe];
    EXPECT_TRUE(form.pressDefault());
    EXPECT_EQ(runtime.shells,
              (std::vector<FakeRuntime::Shell>{{1, R"(notepad c:\my games\cave.kel)"},
                                               {1, "\"" + pfe + R"(" "c:\my games\cave.kel")"}}));
    state.EditorPath.clear();
    EXPECT_TRUE(toldAfter(edit.btnEdit, "Text Editor program  not found"));
    EXPECT_FALSE(runtime.files.contains(script));
}

}  // namespace
