#include <gtest/gtest.h>

#include "model.h"

using namespace model;

namespace {

struct Compile : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    core::AppState& state = desk.program.state;
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.CompilerPath = "c:\\kelm\\programs\\kelm.exe";
        state.EditorPath = "C:\\Program Files\\PFE\\PFE32.exe";
        state.StartTab = 2;
        return desk.open();
    }();
    tools::CompilePanel& panel = form.compile;

    void allOptions() {
        panel.optFormat(2).click();
        panel.chkDebug.click();
        panel.chkFullsource.click();
    }
    void include(const std::string& folder, const std::string& shortName) {
        panel.lstInclude.AddItem(folder);
        runtime.shortNames[folder] = shortName;
    }
};

TEST_F(Compile, TheFileNameMakesTheCommands) {
    const std::string tool = "\"c:\\kelm\\programs\\kelm.exe\" ";
    runtime.shortNames["c:\\my games\\wizardquest.kel"] = "c:\\MYGAME~1\\WIZARD~1.KEL";
    runtime.shortNames["c:\\games\\epistle99.kelm"] = "c:\\games\\EPISTL~1.KEL";
    const struct {
        std::string typed;
        std::vector<std::string> lead;
        std::string stem;
    } cases[] = {
        {"mygame.kel", {}, "mygame"},
        {"c:mygame.kel", {"c:"}, "mygame"},
        {"games\\mygame.kel", {"cd \"games\\\""}, "mygame"},
        {"c:\\mygame.kel", {"c:", "cd \"\\\""}, "mygame"},
        {"c:\\games\\my.game.kel", {"c:", "cd \"\\games\\\""}, "my.game"},
        {"c:\\my.dir\\game", {"c:", "cd \"\\my.dir\\\""}, "game"},
        {"c:\\games\\", {"c:", "cd \"\\games\\\""}, ""},
        {"c:/gam/my.kel", {"c:"}, "/gam/my"},
        {"\u00e9:\\x.kel", {"\u00e9:", "cd \"\\\""}, "x"},
        {"", {}, ""},
        {"eightchr.kel", {}, "eightchr"},
        {"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9.kel",
         {},
         "\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"},
        {"ninechars.kel", {}, ""},
        {"my game.kel", {}, "my game"},
        {"c:\\my games\\wizardquest.kel", {"c:", "cd \"\\my games\\\""}, "WIZARD~1"},
        {"c:\\my games\\wizardquest", {"c:", "cd \"\\my games\\\""}, "WIZARD~1"},
        {"c:\\my games\\wizardquest.txt", {"c:", "cd \"\\my games\\\""}, "WIZARD~1"},
        {"c:\\games\\epistle99.kel", {"c:", "cd \"\\games\\\""}, "EPISTL~1"},
    };
    for (const auto& c : cases) {
        panel.txtFname.type(c.typed);
        auto expected = c.lead;
        expected.push_back(tool + c.stem + " -List -Height 0");
        expected.push_back("notepad " + c.stem + ".lis");
        expected.emplace_back("exit");
        EXPECT_EQ(panel.txtCmdline.Text(), lines(expected)) << c.typed;
    }
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Compile, TheOptionsMakeTheToolLine) {
    include("c:\\kelm\\lib", "C:\\KELM\\LIB");
    include("d:\\shared things", "D:\\SHARED~1");
    panel.txtFname.type("D:\\Games\\Quest\\mygame.kel");
    allOptions();
    panel.optCharset(2).click();
    panel.optEditor(1).click();
    const std::string all = lines(
        {"D:", "cd \"\\Games\\Quest\\\"",
         "\"c:\\kelm\\programs\\kelm.exe\" -Include \"C:\\KELM\\LIB\" -Include \"D:\\SHARED~1\" "
         "mygame -Pack -Debug -Full -CharSet Mac -List -Height 0",
         "\"C:\\Program Files\\PFE\\PFE32.exe\" mygame.lis", "exit"});
    EXPECT_EQ(panel.txtCmdline.Text(), all);

    state.EditorPath = "c:\\other.exe";
    allOptions();
    panel.optFormat(0).click();
    panel.optCharset(0).click();
    panel.lstInclude.Clear();
    include("c:\\nosuch", "");
    panel.UpdateCmdline();
    EXPECT_EQ(panel.txtCmdline.Text(),
              lines({"D:", "cd \"\\Games\\Quest\\\"",
                     "\"c:\\kelm\\programs\\kelm.exe\" -Include \"\" mygame -List -Height 0",
                     "\"C:\\Program Files\\PFE\\PFE32.exe\" mygame.lis", "exit"}))
        << "the viewer keeps the path of its click";
}

TEST_F(Compile, ThePressWritesAndStartsTheScript) {
    include("c:\\kelm\\standard library", "c:\\kelm\\STANDA~1");
    runtime.files["c:\\my games\\cave.kel"];
    runtime.files["c:\\kelm\\programs\\kelm.exe"];
    panel.txtFname.type("c:\\my games\\cave.kel");
    allOptions();
    panel.optCharset(1).click();
    EXPECT_TRUE(form.pressDefault());
    EXPECT_EQ(runtime.files["c:\\nwb\\~kelmcon.bat"].text,
              lines({"c:", "cd \"\\my games\\\"",
                     "\"c:\\kelm\\programs\\kelm.exe\" -Include \"c:\\kelm\\STANDA~1\" cave -Pack "
                     "-Debug -Full -CharSet ISO -List -Height 0",
                     "notepad cave.lis", "exit", "", "", "pause", "", "", "exit", ""}));
    EXPECT_EQ(runtime.shells, std::vector<std::string>{"1 \"c:\\nwb\\~kelmcon.bat\""});
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Compile, TheChecksStandInTheirOrder) {
    const std::string base = "c:\\games\\longername";
    const auto expectBox = [&](const std::string& text, int flags = 0,
                               const std::string& title = "") {
        runtime.boxes.clear();
        panel.btnCompile.click();
        EXPECT_EQ(runtime.boxes, (std::vector<FakeRuntime::Box>{{text, flags, title}}));
        EXPECT_TRUE(runtime.shells.empty());
        EXPECT_FALSE(runtime.files.contains("c:\\nwb\\~kelmcon.bat"));
    };
    panel.txtFname.type(base + ".txt");
    panel.optEditor(1).click();
    expectBox("Kelm source code file \"" + base + ".kel(m)\" not found");

    runtime.files[base + ".kelm"].changed = 10;
    runtime.files[base + ".kcd"].changed = 11;
    runtime.answer = core::Runtime::Answer::No;
    expectBox(
        "The current compiled game is newer than the currently saved version of the source code "
        "file. If you are editing the source code file, you may need to save it to disk before "
        "running this compile.\r\n\r\nDo you want to recompile the game now?",
        4, "Game newer than Source");

    runtime.files[base + ".kel"].changed = 11;  // the first of the two sources counts
    expectBox(
        "Text Editor program C:\\Program Files\\PFE\\PFE32.exe not found. Please correct "
        "program location in Settings menu or select 'Notepad' option.");
    state.EditorPath.clear();
    expectBox(
        "Text Editor program  not found. Please correct program location in Settings menu or "
        "select 'Notepad' option.");
    panel.optEditor(3).click();
    expectBox(
        "Kelm compiler program c:\\kelm\\programs\\kelm.exe not found. Please check program "
        "location in Settings menu.");
    state.CompilerPath.clear();
    expectBox("Kelm compiler program  not found. Please check program location in Settings menu.");
    panel.txtFname.type("");
    expectBox("Kelm source code file \".kel(m)\" not found");

    state.CompilerPath = "k.exe";
    runtime.files["k.exe"];
    runtime.files[base + ".kcd"].changed = 12;
    runtime.answer = core::Runtime::Answer::Yes;
    panel.txtFname.type(base + ".kel");
    panel.btnCompile.click();
    EXPECT_EQ(runtime.shells.size(), 1u) << "Yes goes on";
}

TEST_F(Compile, AScriptThatCannotBeWrittenIsNotStarted) {
    runtime.files["cave.kel"];
    runtime.files[state.CompilerPath];
    panel.txtFname.type("cave.kel");
    for (int call = 1;; ++call) {
        runtime.boxes.clear();
        runtime.calls = 0;
        runtime.failAt = call;
        panel.btnCompile.click();
        if (runtime.boxes.empty()) break;
        EXPECT_EQ(runtime.boxes.back().flags, 48) << call;
        EXPECT_TRUE(runtime.shells.empty());
    }
    EXPECT_EQ(runtime.shells.size(), 1u);
}

}  // namespace
