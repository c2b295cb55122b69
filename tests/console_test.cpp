#include "forms/drop.h"
#include "model.h"

using namespace forms;
using namespace model;

namespace {

constexpr int tabKey = 9;
constexpr int ctrl = forms::ctrlMask;
constexpr int ctrlShift = forms::ctrlMask | forms::shiftMask;

void startAndDismiss(const std::function<void(docs::frmSplash&)>& dismiss) {
    FakeRuntime runtime;
    FakeToolkit toolkit;
    console::Workbench workbench(runtime, toolkit);
    runtime.whileBoxIsOpen = [&] { EXPECT_EQ(workbench.application().Count(), 1); };
    workbench.start();
    ASSERT_EQ(runtime.boxes.size(), 1u);
    auto& splash = dynamic_cast<docs::frmSplash&>(workbench.application().Forms(0));
    EXPECT_EQ(splash.lblProductName.Caption(), "The Norvane Workbench");
    splash.imgLogo.click();
    splash.keyDown(112, 0);
    EXPECT_EQ(&workbench.application().Forms(0), &splash);

    dismiss(splash);
    ASSERT_EQ(workbench.application().Count(), 1);
    auto& form = dynamic_cast<console::frmConsole&>(workbench.application().Forms(0));
    EXPECT_EQ(form.tbsOptions.SelectedItem, 1);
    EXPECT_TRUE(form.play.optPlayer(1).Value);
    EXPECT_EQ(form.compile.txtFname.Text(), "");
    EXPECT_TRUE(form.spelling.fraCodes.Visible && form.edit.fraEditor.Visible);
    EXPECT_EQ(form.Width, 6500);
    EXPECT_FALSE(toolkit.ended);
    form.mnuFileExit.click();
    EXPECT_TRUE(toolkit.ended);
}

TEST(Start, TheSplashStaysUntilItIsDismissedAndTheConsoleComesUpFromTheDefaults) {
    startAndDismiss([](auto& splash) { splash.keyPress('x'); });
    startAndDismiss([](auto& splash) { splash.Frame1.click(); });
    startAndDismiss([](auto& splash) { splash.Command1.click(); });
}

TEST(Start, AFolderThatCannotBeWrittenIsToldOnceAndAllElseWorks) {
    for (const bool readOnlyToTheEnd : {true, false}) {
        FakeRuntime runtime;
        FakeToolkit toolkit;
        console::Workbench workbench(runtime, toolkit);
        runtime.readOnly = true;
        workbench.start();
        ASSERT_EQ(runtime.boxes.size(), 2u);
        EXPECT_EQ(runtime.boxes[1].flags, 48);
        EXPECT_NE(runtime.lastBox().find("\"c:\\nwb\""), std::string::npos);
        workbench.application().Forms(0).keyPress('x');
        auto& form = dynamic_cast<console::frmConsole&>(workbench.application().Forms(0));
        runtime.files["c.kel"] = runtime.files[R"(c:\kelm\programs\kelm.exe)"] = {};
        form.tbsOptions.pick(2);
        form.compile.txtFname.type("c.kel");
        form.compile.btnCompile.click();
        EXPECT_EQ(runtime.shells, std::vector<std::string>{R"(1 "c:\temp\~kelmcon.bat")"});
        toolkit.anyUser = [](forms::Form& dialog) { dialog.pressDefault(); };
        form.mnuOptionsPrograms.click();
        runtime.readOnly = readOnlyToTheEnd;
        form.mnuFileExit.click();
        EXPECT_EQ(runtime.boxes.size(), 2u) << runtime.lastBox();
        EXPECT_NE(runtime.files.contains(R"(c:\nwb\nwbw.ini)"), readOnlyToTheEnd);
        EXPECT_FALSE(runtime.files.contains(R"(c:\nwb\~nwbwtry.tmp)"));
    }
}

TEST(Console, WhatItShowsComesFromTheStateAndGoesBackAtTheEnd) {
    Desk desk;
    auto& state = desk.program.state;
    state.EditFileName = "e.kel";
    state.CompileFileName = "c.kel";
    state.ExtractFileName = "s.kel";
    state.CompileHidden = 1;
    state.PlayerChoice = 2;
    state.StartTab = 3;
    state.IncludeFolders = {"one", "two", "", "old"};
    desk.runtime.settings = {{"MainLeft", "-1500"}, {"MainTop", "x"}, {"MainWidth", "7000.5"}};
    auto& form = desk.open();
    EXPECT_EQ((std::vector<int>{form.Left, form.Top, form.Width, form.Height}),
              (std::vector<int>{-1500, 1000, 7000, 6500}));
    EXPECT_FALSE(form.compile.fraFormat.Visible);
    EXPECT_EQ(form.compile.txtCmdline.Text(),
              lines(R"("" -Include "" -Include "" c -List -Height 0|notepad c.lis|exit)"));

    form.play.txtFnameP.type("new.kcd");
    form.play.optPlayer(0).click();
    form.play.chkHideP.click();
    form.keyDown(tabKey, ctrl);
    form.moved({10, 20, 300, 400}, forms::WindowState::Normal);
    form.close();
    EXPECT_EQ(desk.runtime.settings["MainLeft"] + desk.runtime.settings["MainHeight"], "10400");
    const std::string& saved = desk.runtime.files[R"(c:\nwb\nwbw.ini)"].text;
    EXPECT_TRUE(saved.ends_with(lines("e.kel|c.kel|new.kcd|s.kel| 0 | 1 | 1 | 0 | 0 | 4 |one|two")))
        << saved;
}

TEST(Console, AMinimisedWindowKeepsItsOldPlaceInTheStoreAndAMaximisedOneDoesNot) {
    for (const auto window : {forms::WindowState::Minimised, forms::WindowState::Maximised}) {
        Desk desk;
        auto& form = desk.open();
        form.moved({-8, -9, 100, 200}, window);
        desk.application.load<docs::frmSplash>([] {});
        form.close();
        EXPECT_EQ(desk.application.Count(), 0) << "all other forms go too";
        const std::map<std::string, std::string> place = {
            {"MainLeft", "-8"}, {"MainTop", "-9"}, {"MainWidth", "100"}, {"MainHeight", "200"}};
        const bool stored = window == forms::WindowState::Maximised;
        EXPECT_EQ(desk.runtime.settings, stored ? place : decltype(place)());
    }
}

TEST(Console, AStoreThatCannotBeWrittenCostsNoSettings) {
    Desk desk;
    auto& form = desk.open();
    form.edit.txtFnameE.type("new.kel");
    desk.runtime.failAt = desk.runtime.calls + 1;
    form.close();
    EXPECT_EQ(desk.runtime.lastBox(), "48 rtcSaveSetting failed");
    EXPECT_NE(desk.runtime.files[R"(c:\nwb\nwbw.ini)"].text.find("new.kel"), std::string::npos);
}

TEST(Console, TheTabsTurnByKeyboard) {
    Desk desk;
    auto& form = desk.open();
    const struct {
        int key, shift, tab;
    } turns[] = {{tabKey, ctrl | forms::altMask, 2},
                 {tabKey, ctrlShift, 1},
                 {tabKey, ctrlShift, 4},
                 {tabKey, ctrl, 1},
                 {tabKey, forms::shiftMask, 1},
                 {65, ctrl, 1}};
    for (const auto& turn : turns) {
        form.keyDown(turn.key, turn.shift);
        EXPECT_EQ(form.tbsOptions.SelectedItem, turn.tab);
    }
}

TEST(Console, TheTabsFitTheOptionsToThePathsThatAreSet) {
    Desk desk;
    auto& state = desk.program.state;
    state.EditorPath = state.WordProcessorPath = "e.exe";
    auto& form = desk.open();
    form.tbsOptions.pick(2);
    form.compile.optEditor(1).click();
    state.EditorPath = state.WordProcessorPath = "";
    form.tbsOptions.pick(2);
    EXPECT_TRUE(form.compile.optEditor(3).Value && !form.compile.optEditor(1).Enabled);
    EXPECT_TRUE(form.edit.optEditWith(0).Enabled) << "not before its tab is selected";
    form.tbsOptions.pick(4);
    EXPECT_FALSE(form.spelling.chkAutoOpen.Enabled || form.spelling.chkAutoOpen.Value);
    state.EditorPath = state.WordProcessorPath = "e.exe";
    form.tbsOptions.pick(2);
    form.tbsOptions.pick(4);
    EXPECT_TRUE(form.compile.optEditor(1).Enabled && form.compile.optEditor(3).Value);
    EXPECT_TRUE(form.spelling.chkAutoOpen.Enabled && !form.spelling.chkAutoOpen.Value);
}

TEST(Console, ADroppedFileGoesIntoTheBoxThatIsMeant) {
    Desk desk;
    auto& form = desk.open();
    auto& play = form.play;
    const struct {
        int tab;
        bool replay;
        Control& on;
        TextBox* box;
    } rows[] = {{1, false, form, &form.edit.txtFnameE},
                {2, false, form.compile.chkDebug, &form.compile.txtFname},
                {3, false, play.fraMode, &play.txtFnameP},
                {3, false, play.txtLogfile, nullptr},  // not in use
                {3, true, play.labLogfile, &play.txtLogfile},
                {3, true, play.txtFnameP, &play.txtFnameP},
                {3, true, form.tbsOptions, nullptr},  // either
                {4, false, form.sbStatusBar, &form.spelling.txtFnameS}};
    for (const auto& row : rows) {
        form.tbsOptions.pick(row.tab);
        if (play.chkPlayback.Value != row.replay) play.chkPlayback.click();
        EXPECT_EQ(dropTarget(row.on), row.box) << row.tab << row.replay << row.on.fullName();
    }
}

}  // namespace
