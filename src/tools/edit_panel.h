#pragma once

#include <string>

#include "core/module1.h"
#include "forms/controls.h"
#include "tools/panel.h"

namespace tools {

/// Opens a source file in the user's text editor or in Notepad. There is no command script: the
/// only action spawns the editor directly.
class EditPanel {
  public:
    EditPanel(core::Program& program, forms::CommonDialog& dialog, forms::Container& panel);

    enum Editor { ownEditor, notepad };  ///< indices of optEditWith

    /// Enables the options whose programs are set; disables and deselects the others. Called when
    /// the panel is shown.
    void fitToPaths();

  private:
    void btnBrowseE_Click();
    void btnEdit_Click();
    void chkHideE_Click();

    core::Program& program_;
    forms::CommonDialog& dialog_;
    forms::Container& panel_;

  public:
    forms::Frame fraSample1{panel_, {.name = "fraSample1", .place = panel::whole}};
    forms::Label Label4{
        fraSample1,
        {
            .name = "Label4",
            .caption = "KELM source code file",
            .place = panel::fileLabel,
        },
    };
    forms::TextBox txtFnameE{
        fraSample1,
        {
            .name = "txtFnameE",
            .text = "mygame.kel",
            .tooltip = "Name of source code file you wish to create or edit",
            .place = panel::fileText,
            .holdsPath = true,
        },
    };
    forms::Button btnBrowseE{
        fraSample1,
        {
            .name = "btnBrowseE",
            .caption = panel::browseCaption,
            .tooltip = "open a file-browse dialog box to select desired source code file",
            .place = panel::browseButton,
            .event = [this] { btnBrowseE_Click(); },
        },
    };
    forms::Button btnEdit{
        fraSample1,
        {
            .name = "btnEdit",
            .caption = "&Edit",
            .tooltip = "Open the specified file in text editor program",
            .place = panel::actionButton,
            .isDefault = true,
            .event = [this] { btnEdit_Click(); },
        },
    };
    forms::CheckBox chkHideE{
        fraSample1,
        {
            .name = "chkHideE",
            .caption = panel::hideCaption,
            .tooltip = panel::hideTooltip,
            .place = panel::hideBox,
            .ticked = true,
            .event = [this] { chkHideE_Click(); },
        },
    };
    forms::Groove rule{
        fraSample1,
        {.name = "Line1", .index = 9},
        {.name = "Line6"},
        {panel::left, panel::ruleTop, panel::width},
    };

    forms::Frame fraEditor{
        fraSample1,
        {
            .name = "fraEditor",
            .caption = "Text Editor",
            .tooltip =
                "Edit file with text editor program (if set in Settings) or Windows' Notepad "
                "editor",
            .place = {panel::left, panel::optionsTop, panel::width, panel::frameHeight(2)},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optEditWith{
        fraEditor,
        "optEditWith",
        {
            {
                .index = ownEditor,
                .caption = "&My Text Editor",
                .tooltip = "edit the file with the text editor program specified in Settings",
                .place = panel::row(0, panel::width),
                .ticked = true,
            },
            {
                .index = notepad,
                .caption = "Windows &Notepad",
                .tooltip = "Use Windows Notepad rather than editor specified in Settings",
                .place = panel::row(1, panel::width),
            },
        },
    };
    forms::Line optionsEnd{
        fraSample1,
        {
            .name = "Line1",
            .index = 13,
            .place = {panel::left, panel::optionsTop + panel::frameHeight(2) + 135, panel::width,
                      15},
        },
    };
};

}  // namespace tools
