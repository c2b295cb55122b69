#include "fakes.h"

using namespace fakes;

namespace {

const std::string tool = R"("c:\kelm\programs\kelm.exe" )";
const std::string script = R"(c:\nwb\~kelmcon.bat)";

struct Compile : testing::Test, Desk {
    console::frmConsole& form = [this]() -> console::frmConsole& {
        state.CompilerPath = R"(c:\kelm\programs\kelm.exe)";
        state.EditorPath = R"(C:\Program Files\PFE\PFE32.exe)";
        state.StartTab = 2;
        return open();
    }();
    tools::CompilePanel& panel = form.compile;
};

TEST_F(Compile, TheFileNameMakesTheCommands) {
    runtime.shortNames[R"(c:\my games\wizardquest.kel)"] = R"(c:\MYGAME~1\WIZARD~1.KEL)";
    runtime.shortNames[R"(c:\games\epistle99.kelm)"] = R"(c:\games\EPISTL~1.KEL)";
    runtime.shortNames["c:ninechars.kel"] = "c:NINECH~1.KEL";
    runtime.shortNames[R"(c:\data\nine chars.kel)"] = R"(c:\data\nine chars.kel)";
    for (const int length : {254, 255}) {
        const std::string name = std::to_string(length) + "characters";
        runtime.shortNames[name] =
            std::string(length - 13, 'x') + '\\' + name.substr(0, 8) + ".KEL";
    }
    const struct {
        std::string typed, lead, stem;
    } cases[] = {
        {"mygame.kel", "", "mygame"},
        {"c:mygame.kel", "c:|", "mygame"},
        {R"(games\mygame.kel)", R"(cd "games\"|)", "mygame"},
        {R"(c:\mygame.kel)", R"(c:|cd "\"|)", "mygame"},
        {R"(c:\games\my.game.kel)", R"(c:|cd "\games\"|)", "my.game"},
        {R"(c:\my.dir\game)", R"(c:|cd "\my.dir\"|)", "game"},
        {R"(c:\games\)", R"(c:|cd "\games\"|)", ""},
        {"c:/gam/my.kel", "c:|", "/gam/my"},
        {R"(é:\x.kel)", R"(é:|cd "\"|)", "x"},
        {"", "", ""},
        {"éééééééé.kel", "", "éééééééé"},
        {"ninechars.kel", "", ""},
        {"c:ninechars.kel", "c:|", "NINECH~1"},
        {R"(c:\data\nine chars.kel)", R"(c:|cd "\data\"|)", "nine chars"},
        {"254characters", "", "254chara"},
        {"255characters", "", ""},
        {"my game.kel", "", "my game"},
        {R"(c:\my games\wizardquest.kel)", R"(c:|cd "\my games\"|)", "WIZARD~1"},
        {R"(c:\my games\wizardquest)", R"(c:|cd "\my games\"|)", "WIZARD~1"},
        {R"(c:\games\epistle99.txt)", R"(c:|cd "\games\"|)", "EPISTL~1"},
    };
    for (const auto& c : cases) {
        panel.txtFname.type(c.typed);
        EXPECT_EQ(
            panel.txtCmdline.Text(),
            lines(c.lead + tool + c.stem + " -List -Height 0|notepad " + c.stem + ".lis|exit"))
            << c.typed;
    }
}

TEST_F(Compile, ThePressWritesAndStartsTheScript) {
    panel.lstInclude.AddItem(R"(c:\kelm\standard library)");
    panel.lstInclude.AddItem(R"(d:\shared things)");
    runtime.shortNames[R"(c:\kelm\standard library)"] = R"(c:\kelm\STANDA~1)";
    runtime.shortNames[R"(d:\shared things)"] = R"(D:\SHARED~1)";
    runtime.files[R"(c:\my games\cave.kel)"];
    runtime.files[state.CompilerPath];
    panel.txtFname.type(R"(c:\my games\cave.kel)");
    panel.optFormat(2).click();
    panel.chkDebug.click();
    panel.chkFullsource.click();
    panel.optCharset(1).click();
    panel.optEditor(1).click();
    runtime.files[state.EditorPath = "other.exe"];  // the viewer keeps the path of its click
    form.play.txtFnameP.Text = R"(d:\other.kcd)";   // leaves its stem with the script
    for (const std::string viewer : {R"(C:\Program Files\PFE\PFE32.exe)", "other.exe"}) {
        EXPECT_TRUE(form.pressDefault());
        EXPECT_EQ(runtime.files[script].text,
                  lines(R"(c:|cd "\my games\"|)" + tool +
                        R"(-Include "c:\kelm\STANDA~1" -Include "D:\SHARED~1" cave -Pack -Debug )"
                        R"(-Full -CharSet ISO -List -Height 0|")" +
                        viewer + "\" cave.lis|exit|||pause|||exit|"));
        panel.optEditor(1).click();
    }
    EXPECT_EQ(runtime.shells, std::vector(2, FakeRuntime::Shell{1, "\"" + script + "\""}));
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Compile, TheChecksStandInTheirOrder) {
    const std::string base = R"(c:\games\longername)";
    const auto refuses = [&](const std::string& start, int flags = 0,
                             const std::string& title = "") {
        panel.btnCompile.click();
        return runtime.told(start, flags, title) && !runtime.files.contains(script);
    };
    panel.txtFname.type(base + ".txt");
    panel.optEditor(1).click();
    EXPECT_TRUE(refuses("Kelm source code file \"" + base + ".kel(m)\" not found"));
    runtime.files[base + ".kelm"].changed = 10;
    runtime.files[base + ".kcd"].changed = 11;
    runtime.answer = core::Runtime::Answer::No;
    EXPECT_TRUE(refuses("The current compiled game is newer", 4, "Game newer than Source"));
    runtime.files[base + ".kel"].changed = 11;  // the first of the two sources counts
    EXPECT_TRUE(refuses("Text Editor program " + state.EditorPath + " not found"));
    state.EditorPath.clear();
    EXPECT_TRUE(refuses("Text Editor program  not found"));
    panel.optEditor(3).click();
    EXPECT_TRUE(refuses("Kelm compiler program " + state.CompilerPath + " not found"));
    state.CompilerPath.clear();
    EXPECT_TRUE(refuses("Kelm compiler program  not found"));
    panel.txtFname.type("");
    EXPECT_TRUE(refuses("Kelm source code file \".kel(m)\" not found"));

    runtime.files[state.CompilerPath = "k.exe"];
    panel.txtFname.type(base + ".kel");
    EXPECT_TRUE(refuses("The file \"" + base + ".kel\" cannot be given to the tool: its path", 48));
    runtime.shortNames[base + ".kel"] = base + ".kel";  // its drive keeps no short names
    runtime.files[base + ".kcd"].changed = 12;
    runtime.answer = core::Runtime::Answer::Yes;
    panel.btnCompile.click();
    EXPECT_EQ(runtime.shells.size(), 1u) << "Yes goes on";
}

}  // namespace
