#include "forms/focus.h"
#include "rules.h"

using namespace forms;
using namespace fakes;

namespace {

/// A run of the whole program.
struct Start : testing::Test {
    FakeRuntime runtime;
    FakeToolkit toolkit;
    console::Workbench workbench{runtime, toolkit};

    forms::Form& first() { return workbench.application().Forms(0); }
    docs::frmSplash& start() {
        workbench.start();
        return dynamic_cast<docs::frmSplash&>(first());
    }
    console::frmConsole& opened() { return dynamic_cast<console::frmConsole&>(first()); }
};

TEST_F(Start, OnlyTheSystemsErrorsHaveAnIcon) {
    const std::string own = "Folder x not found.", systems = "Cannot open x: y";
    workbench.application().dispatch([&] { throw core::Refusal(own); });
    workbench.application().dispatch([&] { throw core::RuntimeError(systems); });
    EXPECT_EQ(runtime.newBoxes(), (std::vector<FakeRuntime::Box>{{own, 0}, {systems, 48}}));
}

TEST_F(Start, AFolderThatCannotBeWrittenIsToldOnceAndAllElseWorks) {
    runtime.readOnly = true;
    start().Command1.click();
    ASSERT_EQ(runtime.boxes.size(), 2u);
    EXPECT_NE(runtime.boxes[1].text.find("\"c:\\nwb\""), std::string::npos);
    auto& form = opened();
    runtime.files["c.kel"] = runtime.files[R"(c:\kelm\programs\kelm.exe)"] = {};
    form.tbsOptions.pick(2);
    form.compile.txtFname.type("c.kel");
    form.compile.btnCompile.click();
    EXPECT_EQ(runtime.shells, (std::vector<FakeRuntime::Shell>{{1, R"("c:\temp\~kelmcon.bat")"}}));
    toolkit.user = [](forms::Form& dialog) { dialog.pressDefault(); };
    form.mnuOptionsPrograms.click();
    EXPECT_FALSE(runtime.files.contains(ini));
    runtime.readOnly = false;
    form.mnuFileExit.click();
    EXPECT_EQ(runtime.boxes.size(), 2u);
    EXPECT_TRUE(runtime.files.contains(ini));
    EXPECT_FALSE(runtime.files.contains(R"(c:\nwb\~nwbwtry.tmp)"));
}

TEST_F(Start, ABugEndsTheProgramAfterTheSettingsWereSavedOnce) {
    auto& splash = start();
    workbench.save();
    EXPECT_TRUE(runtime.files.empty()) << "nothing is filled yet";
    splash.Frame1.click();
    runtime.boxes.clear();
    auto& form = opened();
    form.edit.txtFnameE.type("new.kel");
    form.edit.btnBrowseE.setHandler([] { throw std::logic_error("a bug"); });
    form.edit.btnEdit.setHandler([&] { form.edit.btnBrowseE.click(); });
    EXPECT_THROW(form.edit.btnEdit.click(), std::logic_error);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_NE(runtime.files[ini].text.find("new.kel"), std::string::npos);
    EXPECT_EQ(runtime.files.size(), 1u) << "a second save would leave a backup";
    form.close();
    EXPECT_TRUE(toolkit.ended) << "no handler counts as running";
    runtime.files.clear();
    workbench.save();
    EXPECT_TRUE(runtime.files.empty()) << "closing has saved";
}

TEST(Console, WhatItShowsComesFromTheStateAndGoesBackAtTheEnd) {
    using Store = std::map<std::string, std::string>;
    const Store before = {{"MainLeft", "-1500"}, {"MainTop", "9x"}, {"MainWidth", " 7000.5 "}};
    const Store after = {
        {"MainLeft", "10"}, {"MainTop", "20"}, {"MainWidth", "300"}, {"MainHeight", "400"}};
    const std::tuple<forms::WindowState, bool, Store, std::array<int, 3>> rows[] = {
        {forms::WindowState::Maximised, false, after, {1, 0, 0}},
        {forms::WindowState::Maximised, true, before, {0, 1, 0}},
        {forms::WindowState::Minimised, false, before, {0, 0, 1}}};
    for (const auto& [window, fails, stored, hidden] : rows) {
        Desk desk;
        auto& state = desk.state;
        state.EditFileName = "e.kel";
        state.CompileFileName = "c.kel";
        state.ExtractFileName = "s.kel";
        state.EditHidden = hidden[0];
        state.CompileHidden = hidden[1];
        state.PlayHidden = hidden[0];
        state.ExtractHidden = hidden[2];
        state.PlayerChoice = 2;
        state.StartTab = 3;
        state.IncludeFolders = {"one", "two", "", "old"};
        desk.runtime.settings = before;
        auto& form = desk.open();
        EXPECT_EQ((std::vector<int>{form.Left, form.Top, form.Width, form.Height}),
                  (std::vector<int>{-1500, 1000, 7000, 6500}));
        rules::expectAll(form, state, false);

        for (const auto& [tab, box, name] : {std::tuple(1, &form.edit.txtFnameE, "new.txt"),
                                             {2, &form.compile.txtFname, "new.kel"},
                                             {4, &form.spelling.txtFnameS, "new.lis"},
                                             {3, &form.play.txtFnameP, "n\tew\x7f.kcd\rlost"}}) {
            form.tbsOptions.pick(tab);
            box->type(name);
        }
        form.play.optPlayer(0).click();
        form.play.chkHideP.click();
        const int back = ctrlMask | shiftMask;
        const int shifts[] = {0, back, back, back, ctrlMask, ctrlMask | altMask, altMask};
        for (const int shift : shifts)
            form.keyDown(9, shift);
        form.keyDown('A', ctrlMask);
        form.moved({10, 20, 300, 400}, window);
        desk.application.load<docs::frmSplash>([] {});
        if (fails) desk.runtime.failAt = desk.runtime.calls + 1;
        form.close();
        EXPECT_EQ(desk.application.Count(), 0) << "closes all other forms";
        EXPECT_EQ(desk.runtime.settings, stored);
        EXPECT_EQ(desk.runtime.boxes.size(), fails ? 1u : 0u);
        const std::string& saved = desk.runtime.files[ini].text;
        std::string rest = "new.txt|new.kel|new.kcd|new.lis|";
        for (const int flag : {hidden[0], hidden[1], 1 - hidden[0], hidden[2], 2 * hidden[0], 2})
            rest += ' ' + std::to_string(flag) + " |";
        EXPECT_TRUE(saved.ends_with(lines(rest + "one|two"))) << saved;
    }
}

TEST(Console, AUserReachesOnlyWhatCanBeUsed) {
    Desk desk;
    auto& form = desk.open();
    form.tbsOptions.pick(3);
    EXPECT_EQ(form.mnemonicTarget('E', nullptr), &form.play.optRecord(0));
    form.play.optPlayer(1).Value = false;
    EXPECT_TRUE(form.play.optPlayer(0).isTabStop());
    form.play.optPlayer(0).Enabled = false;
    EXPECT_TRUE(form.play.optPlayer(1).isTabStop()) << "the first usable, as none is selected";
    auto& dialog = desk.application.load<dialogs::frmSettings2>(desk.program);
    for (const auto& [button, next] :
         {std::pair("btnBrowse(1)", "btnBrowse(2)"), {"btnBrowse(9)", "btnBrowse(0)"}})
        EXPECT_EQ(dialog.mnemonicTarget('B', dialog.find(button)), dialog.find(next));
    auto& list = desk.application.load<dialogs::frmIncludeList>(desk.program);
    const auto isButton = [](auto& any) { return dynamic_cast<const forms::Button*>(&any); };
    EXPECT_EQ(forms::focusAfter(list.btnDelete, isButton), &list.btnCancel);
    form.tbsOptions.pick(1);
    const auto isStop = [](const forms::Control& any) {
        return any.name == "tbsOptions" || any.name == "txtFnameE";
    };
    EXPECT_EQ(forms::focusAfter(form.compile.optFormat(0), isStop), &form.edit.txtFnameE);
}

TEST(Console, AControlThatDiesLeavesItsContainer) {
    Desk desk;
    auto& form = desk.open();
    const auto before = form.children();
    std::make_unique<Frame>(form, Definition{}).reset();
    EXPECT_EQ(form.children(), before);
}

}  // namespace
