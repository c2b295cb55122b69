#pragma once

#include "core/module1.h"
#include "docs/help_menu.h"
#include "forms/form.h"
#include "tools/compile_panel.h"
#include "tools/edit_panel.h"
#include "tools/play_panel.h"
#include "tools/spelling_panel.h"

namespace console {

/// The main window: a tab strip with a panel for each tool, the menu and the status bar. It loads
/// from the state and the settings store; closing it saves both and ends the program.
class frmConsole : public forms::Form, public core::Console {
  public:
    frmConsole(forms::Application& application, core::Program& program);

    void Form_Load() override;
    void Form_Unload() override;
    void Form_KeyDown(int keyCode, int shift) override;

    forms::ListBox& lstInclude() override { return compile.lstInclude; }
    void save() override;

  private:
    void mnuFileExit_Click() { Unload(); }
    void mnuOptionsPrograms_Click();
    void mnuOptionsOther_Click();
    void tbsOptions_Click();

    void editIncludes();

    void placeWindow();
    void storePlace();
    void fillFromState();
    void storeToState();
    void fillWithFolders(forms::ListBox& list);

    core::Program& program_;
    tools::CommandScript script_{program_};

  public:
    forms::MenuItem mnuFile{*this, {.name = "mnuFile", .caption = "&File"}};
    forms::MenuItem mnuFileExit{
        mnuFile,
        {
            .name = "mnuFileExit",
            .caption = "E&xit",
            .event = [this] { mnuFileExit_Click(); },
        },
    };

    forms::MenuItem mnuOptions{*this, {.name = "mnuOptions", .caption = "Settin&gs"}};
    forms::MenuItem mnuOptionsPrograms{
        mnuOptions,
        {
            .name = "mnuOptionsPrograms",
            .caption = "&Kelm Programs ...",
            .event = [this] { mnuOptionsPrograms_Click(); },
        },
    };
    forms::MenuItem mnuOptionsOther{
        mnuOptions,
        {
            .name = "mnuOptionsOther",
            .caption = "&Other Programs ...",
            .event = [this] { mnuOptionsOther_Click(); },
        },
    };
    docs::HelpMenu help{program_, *this};

    // The blanks in the captions set the width of the tabs.
    forms::TabStrip tbsOptions{
        *this,
        {
            .name = "tbsOptions",
            .place = {120, 120, 6855, 6300},
            .event = [this] { tbsOptions_Click(); },
        },
        {
            {"  Edit  ", "edit an KELM source code file with a text editor program"},
            {" Compile ", "Compile an KELM source code file into an KELM game"},
            {"   Play   ", "Play and test a compiled KELM game"},
            {"Spelling ", "Get all game text from an KELM source file for spell checking"},
        },
    };
    // The panel of tab i is picOptions(i - 1).
    forms::ControlArray<forms::PictureBox> picOptions{
        *this,
        "picOptions",
        {
            {
                .index = 0,
                .accessibleName = "Edit",
                .place = {240, 720, 6645, 5295},
            },
            {
                .index = 1,
                .accessibleName = "Compile",
                .place = {240, 720, 6720, 5482},
            },
            {
                .index = 2,
                .accessibleName = "Play",
                .place = {360, 720, 6645, 5325},
            },
            {
                .index = 3,
                .accessibleName = "Spelling",
                .place = {360, 720, 6720, 5535},
            },
        },
    };
    tools::CompilePanel compile{program_, script_, picOptions(1), [this] { editIncludes(); }};
    tools::EditPanel edit{program_, compile.CommonDialog1, picOptions(0)};
    tools::PlayPanel play{program_, script_, compile.CommonDialog1, picOptions(2)};
    tools::SpellingPanel spelling{program_, script_, compile.CommonDialog1, picOptions(3)};

    forms::StatusBar sbStatusBar{
        *this,
        {.name = "sbStatusBar", .place = {0, 6540, 7080, 270}},
        {forms::StatusBar::Panel::Text, forms::StatusBar::Panel::Date,
         forms::StatusBar::Panel::Time},
    };
};

}  // namespace console
