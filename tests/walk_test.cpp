#include <algorithm>

#include "endurance.h"
#include "forms/file_lists.h"
#include "rules.h"

using namespace fakes;

namespace {

/// A user who does at random anything that the topmost form allows.
class RandomUser : public endurance::Choices, private forms::ControlVisitor {
  public:
    explicit RandomUser(Desk& desk) : desk_(desk) {}

    int actions = 0;

    void step(forms::Form& form) {
        ++actions;
        const auto controls = form.allControls();
        const std::size_t action = any(12);
        if (action == 0)
            form.keyDown(9, static_cast<int>(any(8)));
        else if (action == 1)
            form.pressDefault();
        else if (action == 2 && &form != desk_.opened)
            form.pressCancel();
        else
            touch(*controls[any(controls.size())]);
    }

    /// Expects that the selected tab enables only options whose program is set.
    void expectFitted() {
        auto& form = *desk_.opened;
        const int tab = form.tbsOptions.SelectedItem;
        const auto fits = [](const auto& option, const std::string& path) {
            return option.Enabled == !path.empty() && (option.Enabled || !option.Value);
        };
        ASSERT_TRUE(tab != 1 || fits(form.edit.optEditWith(0), desk_.state.EditorPath));
        ASSERT_TRUE(tab != 2 || fits(form.compile.optEditor(1), desk_.state.EditorPath));
        ASSERT_TRUE(tab != 4 || fits(form.spelling.chkAutoOpen, desk_.state.WordProcessorPath));
    }

    void touch(forms::Control& control) {
        desk_.toolkit.fileChosen = any(2) ? anyName() : "";
        desk_.runtime.answer = any(2) ? core::Runtime::Answer::Yes : core::Runtime::Answer::No;
        desk_.runtime.failAt = any(4) ? -1 : desk_.runtime.calls + 1 + static_cast<int>(any(10));
        control.accept(*this);
        if (control.name != "mnuFileExit") control.click();
        if (&control == &desk_.opened->tbsOptions) expectFitted();
    }

  private:
    /// Returns a row of a list, which may have none of that number.
    int anyRow(int rows) { return static_cast<int>(any(rows)); }

    void visit(forms::TextBox& box) override { box.type(anyName()); }
    void visit(forms::ListBox& list) override { list.pick(anyRow(20)); }
    void visit(forms::DriveList& list) override { list.pick(anyRow(3)); }
    void visit(forms::FolderList& list) override { list.choose(anyRow(4)); }
    void visit(forms::TabStrip& tabs) override { tabs.pick(1 + anyRow(4)); }
    // These are only clicked, as every control is.
    void visit(forms::Label& /*label*/) override {}
    void visit(forms::Line& /*line*/) override {}
    void visit(forms::Image& /*image*/) override {}
    void visit(forms::Button& /*button*/) override {}
    void visit(forms::CheckBox& /*box*/) override {}
    void visit(forms::OptionButton& /*option*/) override {}
    void visit(forms::Frame& /*frame*/) override {}
    void visit(forms::PictureBox& /*panel*/) override {}
    void visit(forms::StatusBar& /*bar*/) override {}
    void visit(forms::MenuItem& /*item*/) override {}

    Desk& desk_;
};

TEST(FormWalk, RandomActionsOverAllFormsKeepEveryRuleAndNoMemory) {
    const int most = endurance::setting("NWBW_ACTIONS", 50000);
    Desk desk;
    for (const std::string& name : RandomUser::names)
        desk.runtime.files[name];
    desk.runtime.tree["d:\\"] = {};  // e: cannot be read
    auto& form = desk.open();
    auto& state = desk.state;
    RandomUser user(desk);
    int modals = 0;
    desk.toolkit.user = [&](forms::Form& modal) {
        ++modals;
        for (int steps = 0; steps < 40 && !modal.unloaded(); ++steps)
            user.step(modal);
    };
    std::size_t settled = 0;
    while (user.actions < most) {
        const int before = modals;
        user.step(form);
        rules::expectAll(form, state, modals != before);
        ASSERT_EQ(desk.application.Count(), 1);
        if (HasFatalFailure()) return;
        const auto boxes = desk.runtime.newBoxes();
        const bool failed = std::ranges::any_of(boxes, [](const auto& box) {
            return box.text.starts_with("vba") || box.text.starts_with("rtc");
        });
        ASSERT_TRUE(!failed || desk.runtime.shells.empty()) << "no incomplete script starts";
        desk.runtime.failAt = -1;
        desk.runtime.shells.clear();
        if (settled == 0 && user.actions > most / 10) settled = endurance::heapInUse();
    }
    // Allows for texts; a form or handler leaked by each dialog would take far more.
    EXPECT_LE(endurance::heapInUse(), settled + 16384);
    EXPECT_GT(modals, 500);
}

}  // namespace
