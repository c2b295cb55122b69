#include <gtest/gtest.h>

#include "model.h"

using namespace model;

namespace {

const std::string klex = "c:\\kelm\\programs\\klex.exe";
const std::string word = "C:\\Program Files\\Microsoft Office\\Office\\Winword.exe";
const std::string script = "c:\\nwb\\~kelmcon.bat";

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
    const auto text = [&] { return panel.txtCmdlineS.Text(); };
    const std::string tool = "\"" + klex + "\" ";
    EXPECT_EQ(text(), lines({tool + " -FF -PC", "\"" + word + "\"  .txt"}));
    panel.txtFnameS.type("C:\\Games\\Quest\\mygame.kel");
    EXPECT_EQ(text(), lines({"C:", "cd \"\\Games\\Quest\\\"", tool + "mygame -FF -PC",
                             "\"" + word + "\"  mygame.txt"}));
    EXPECT_EQ(panel.lblDefname.Caption(), "(Default= mygame.txt)");

    panel.chkOverwrite.click();
    panel.chkLineNum.click();
    panel.optCodes(2).click();
    panel.optParam(3).click();
    panel.chkAutoOpen.click();
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.txtFnameO.Text(), "mygame.txt");
    panel.txtFnameO.type("words.txt");
    EXPECT_EQ(text(), lines({"C:", "cd \"\\Games\\Quest\\\"",
                             tool + "mygame -OO -FR -PR -NL  -OFwords.txt"}));

    panel.chkOverwrite.click();
    panel.chkLineNum.click();
    panel.optCodes(1).click();
    panel.optParam(1).click();
    panel.chkAutoOpen.click();
    runtime.shortNames["D:\\My Games\\thelongadventure.kelm"] = "D:\\MYGAME~1\\THELON~1.KEL";
    panel.txtFnameS.type("D:\\My Games\\thelongadventure.kelm");
    panel.txtFnameO.type("D:\\out\\words.txt");
    EXPECT_EQ(text(),
              lines({"D:", "cd \"\\My Games\\\"", tool + "THELON~1 -FD -PQ  -OFD:\\out\\words.txt",
                     "\"" + word + "\"  D:\\out\\words.txt"}));
    panel.optCodes(0).click();
    panel.optParam(2).click();
    panel.txtFnameO.type("");
    EXPECT_TRUE(text().ends_with("THELON~1 -FF -PD  -OF\r\n\"" + word + "\"  \r\n"));
}

TEST_F(Spelling, TheNameOfTheOutputIsOneOwnsOrTheSources) {
    panel.txtFnameS.type("quest.kel");
    form.compile.txtFname.Text = "other.kel";
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.txtFnameO.Text(), "quest.txt") << "whatever panel was rebuilt last";
    EXPECT_TRUE(panel.txtFnameO.Visible && panel.btnBrowseO.Visible &&
                panel.lblDefaultFilename.Visible && !panel.lblDefname.Visible);
    panel.txtFnameO.type("mine.txt");
    form.compile.txtFname.Text = "another.kel";
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.lblDefname.Caption(), "(Default= quest.txt)");
    EXPECT_FALSE(panel.txtFnameO.Visible || panel.btnBrowseO.Visible ||
                 panel.lblDefaultFilename.Visible || !panel.lblDefname.Visible);
    panel.txtFnameS.type("my.game.kel");
    EXPECT_EQ(panel.lblDefname.Caption(), "(Default= my.game.txt)");
    panel.chkOutputfile.click();
    EXPECT_EQ(panel.txtFnameO.Text(), "mine.txt") << "an earlier name stays";
    panel.txtFnameS.type("nosuchfile.kel");
    EXPECT_EQ(panel.lblDefname.Caption(), "(Default= .txt)");
}

TEST_F(Spelling, TheChecksStandInTheirOrder) {
    const std::string hint =
        " exists. If you wish to overwrite it tick the 'Overwrite existing output file' option and "
        "then click the Extract button again.";
    const std::string settings = " not found. Please check program location settings.";
    panel.txtFnameS.type("c:\\g\\longername.kelm");
    EXPECT_EQ(boxAfter(panel.btnExtract), "KLex program " + klex + settings);
    state.ExtractorPath.clear();
    EXPECT_EQ(boxAfter(panel.btnExtract), "KLex program " + settings);
    state.ExtractorPath = klex;
    runtime.files[klex];
    EXPECT_EQ(boxAfter(panel.btnExtract),
              "Wordprocessing program " + word +
                  " not found. Please change the program location in the Settings menu or just "
                  "turn off 'open in wordprocessor' option on this panel.");
    panel.chkAutoOpen.click();
    EXPECT_EQ(boxAfter(panel.btnExtract),
              "Kelm source code file \"c:\\g\\longername.kel(m)\" not found");
    runtime.files["c:\\g\\longername.kelm"];
    runtime.files["c:\\g\\longername.txt"];
    runtime.files["mine.txt"];
    EXPECT_EQ(boxAfter(panel.btnExtract), "Output file \"c:\\g\\longername.txt\"" + hint);
    panel.chkOutputfile.click();
    panel.txtFnameO.type("mine.txt");
    EXPECT_EQ(boxAfter(panel.btnExtract), "Output file \"mine.txt\"" + hint);
    EXPECT_TRUE(runtime.shells.empty());

    panel.txtFnameO.type("");
    EXPECT_EQ(boxAfter(panel.btnExtract), "") << "an empty name is no file";
    panel.txtFnameO.type("mine.txt");
    panel.chkOverwrite.click();
    EXPECT_EQ(boxAfter(panel.btnExtract), "");
    EXPECT_EQ(runtime.shells, std::vector<std::string>(2, "1 \"" + script + "\""));
    EXPECT_EQ(runtime.files[script].text,
              lines({"c:", "cd \"\\g\\\"", "\"" + klex + "\"  -OO -FF -PC  -OFmine.txt", ""}));
}

TEST_F(Spelling, TheEditorIsStartedDirectly) {
    form.tbsOptions.pick(1);
    edit.txtFnameE.type("c:\\my games\\cave.kel");
    EXPECT_TRUE(edit.optEditWith(1).Value) << "without an editor Notepad serves";
    EXPECT_EQ(boxAfter(edit.btnEdit), "");
    state.EditorPath = "C:\\Program Files\\PFE\\PFE32.exe";
    edit.optEditWith(0).click();
    EXPECT_TRUE(edit.optEditWith(1).Value) << "the editor counts when the tab is next selected";
    form.tbsOptions.pick(1);
    edit.optEditWith(0).click();
    const std::string missing =
        " not found. Please correct program location in Settings menu or "
        "select 'Notepad' option.";
    EXPECT_EQ(boxAfter(edit.btnEdit), "Text Editor program " + state.EditorPath + missing);
    runtime.files[state.EditorPath];
    EXPECT_TRUE(form.pressDefault());
    EXPECT_EQ(runtime.shells,
              (std::vector<std::string>{
                  "1 notepad c:\\my games\\cave.kel",
                  "1 \"C:\\Program Files\\PFE\\PFE32.exe\" \"c:\\my games\\cave.kel\""}));
    state.EditorPath.clear();
    EXPECT_EQ(boxAfter(edit.btnEdit), "Text Editor program " + missing);
    EXPECT_FALSE(runtime.files.contains(script));
}

}  // namespace
