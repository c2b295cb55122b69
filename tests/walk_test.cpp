#include <random>

#include "core/settings_file.h"
#include "endurance.h"
#include "forms/file_lists.h"
#include "rules.h"

using namespace model;

namespace {

/// A user who does anything that the topmost form lets one do.
class Walker {
  public:
    explicit Walker(Desk& desk) : desk_(desk) {}

    int actions = 0;

    void step(forms::Form& form) {
        ++actions;
        const auto controls = form.allControls();
        switch (any(12)) {
            case 0:
                form.keyDown(9, any(8));
                break;
            case 1:
                form.pressDefault();
                break;
            case 2:
                if (&form != desk_.form) form.pressCancel();
                break;
            default:
                touch(*controls[any(controls.size())]);
        }
    }

    std::size_t any(std::size_t count) { return random_() % count; }

    void touch(forms::Control& control) {
        desk_.toolkit.fileChosen = any(2) ? names_[any(names_.size())] : "";
        desk_.runtime.answer = any(2) ? core::Runtime::Answer::Yes : core::Runtime::Answer::No;
        const int row = static_cast<int>(any(20));
        if (auto* text = dynamic_cast<forms::TextBox*>(&control))
            text->type(names_[any(names_.size())]);
        if (auto* list = dynamic_cast<forms::ListBox*>(&control)) list->pick(row);
        if (auto* drives = dynamic_cast<forms::DriveList*>(&control)) drives->pick(row % 3);
        if (auto* folders = dynamic_cast<forms::FolderList*>(&control)) folders->choose(row % 4);
        if (auto* tabs = dynamic_cast<forms::TabStrip*>(&control)) tabs->pick(1 + row % 4);
        if (control.name != "mnuFileExit") control.click();
    }

  private:
    Desk& desk_;
    std::mt19937 random_{1};
    const std::vector<std::string> names_ = {"",
                                             "c:\\games\\cave.kel",
                                             "cave.kcd",
                                             "d:\\tool.exe",
                                             "d:quest.kelm",
                                             "c:\\nosuch\\x.exe",
                                             "  ",
                                             "a,b\"c.log",
                                             "much too long.kel"};
};

TEST(Walk, RandomActionsOverAllFormsKeepEveryRuleAndNoMemory) {
    const int most = endurance::setting("NWBW_ACTIONS", 50000);
    Desk desk;
    for (const char* file : {"c:\\games\\cave.kel", "c:\\games\\cave.kcd", "d:\\tool.exe",
                             "d:quest.kelm", "cave.kcd"}) {
        desk.runtime.files[file];
    }
    desk.runtime.tree["d:\\"] = {};  // e: cannot be read
    auto& form = desk.open();
    auto& state = desk.program.state;
    Walker walker(desk);
    int modals = 0;
    int deepest = 0;
    desk.toolkit.anyUser = [&](forms::Form& modal) {
        ++modals;
        deepest = std::max(deepest, desk.application.Count());
        for (int steps = 0; steps < 40 && !modal.unloaded(); ++steps)
            walker.step(modal);
    };
    std::size_t commands = 0;
    std::size_t settled = 0;
    while (walker.actions < most) {
        const int before = modals;
        walker.step(form);
        rules::expectAll(form, state, modals != before);
        ASSERT_EQ(desk.application.Count(), 1);
        if (HasFatalFailure()) return;
        desk.runtime.boxes.clear();
        commands += std::exchange(desk.runtime.shells, {}).size();
        if (settled == 0 && walker.actions > most / 10) settled = endurance::heapInUse();
    }
    // The texts come and go; a form or a handler kept by each dialog would take far more.
    EXPECT_LE(endurance::heapInUse(), settled + 16384);
    EXPECT_GT(modals, 500);
    EXPECT_EQ(deepest, 3);
    EXPECT_GT(commands, 100u);
    const int lastTab = form.tbsOptions.SelectedItem;
    form.close();
    state = {};
    core::LoadSettings(desk.program);
    EXPECT_EQ(state.StartTab, lastTab);
}

}  // namespace
