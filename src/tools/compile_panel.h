#pragma once

#include <functional>
#include <string>

#include "core/module1.h"
#include "forms/controls.h"
#include "tools/command_script.h"
#include "tools/panel.h"

namespace tools {

/// Compiles a source file into a game: builds the command lines of the compiler and of the
/// listing's viewer, checks the files and runs the commands.
class CompilePanel {
  public:
    /// editIncludes lets the user edit the search list.
    CompilePanel(core::Program& program, CommandScript& script, forms::Container& panel,
                 std::function<void()> editIncludes);

    // Indices of optFormat and optEditor.
    enum Format { normal = 0, packed = 2 };
    enum Viewer { textEditor = 1, notepad = 3 };

    /// Sets the viewer of the listing from the selected option.
    void chooseViewer();
    /// Enables the options whose programs are set; disables and deselects the others. Called when
    /// the panel is shown.
    void fitToPaths();
    /// Rebuilds the command text; sets FileStem and FileBase to the source.
    void UpdateCmdline();

  private:
    void txtFname_Change() { UpdateCmdline(); }
    void btnBrowse_Click();
    void btnCompile_Click();
    void chkHideC_Click();
    void optFormat_Click(int index);
    void chkDebug_Click();
    void optEditor_Click(int index);
    void chkFullsource_Click();
    void optCharset_Click(int index);
    void btnModifyIncludes_Click();

    core::Program& program_;
    CommandScript& script_;
    forms::Container& panel_;
    std::function<void()> editIncludes_;

    // Each is its part of the command with a leading blank, or empty.
    std::string PackOption;
    std::string DebugOption;
    std::string FullOption;
    std::string CharsetOption;
    std::string ViewerPrefix;

    static constexpr int column = 2850;
    static constexpr int rightColumn = panel::left + panel::width - column;
    // A groove separates the rows of the upper frames from the two at the top.
    static constexpr int grooveGap = 75;
    static constexpr int grooveTop = panel::row(2, column).top + grooveGap / 2;
    static constexpr int upperHeight = panel::frameHeight(3) + grooveGap;
    static constexpr int secondRow = panel::optionsTop + upperHeight + 105;

  public:
    forms::Frame fraSample2{panel_, {.name = "fraSample2", .place = panel::whole}};
    forms::Label Label1{
        fraSample2,
        {
            .name = "Label1",
            .caption = "KELM source code file",
            .place = panel::fileLabel,
        },
    };
    forms::TextBox txtFname{
        fraSample2,
        {
            .name = "txtFname",
            .text = "mygame.kel",
            .tooltip = "Name of source code file to be compiled",
            .place = panel::fileText,
            .holdsPath = true,
            .event = [this] { txtFname_Change(); },
        },
    };
    forms::Button btnBrowse{
        fraSample2,
        {
            .name = "btnBrowse",
            .caption = panel::browseCaption,
            .tooltip = "open a file-browse dialog box to select desired source code file",
            .place = panel::browseButton,
            .event = [this] { btnBrowse_Click(); },
        },
    };
    forms::Button btnCompile{
        fraSample2,
        {
            .name = "btnCompile",
            .caption = "&Compile",
            .tooltip = "Compile the select source code file using any options settings below",
            .place = panel::actionButton,
            .isDefault = true,
            .event = [this] { btnCompile_Click(); },
        },
    };
    forms::CheckBox chkHideC{
        fraSample2,
        {
            .name = "chkHideC",
            .caption = panel::hideCaption,
            .tooltip = panel::hideTooltip,
            .place = panel::hideBox,
            .ticked = true,
            .event = [this] { chkHideC_Click(); },
        },
    };
    forms::Groove rule{
        fraSample2,
        {.name = "Line1", .index = 2},
        {.name = "Line7"},
        {panel::left, panel::ruleTop, panel::width},
    };

    forms::Frame fraFormat{
        fraSample2,
        {
            .name = "fraFormat",
            .caption = "Game File Format",
            .tooltip = "Set format of compiled game files",
            .place = {panel::left, panel::optionsTop, column, upperHeight},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optFormat{
        fraFormat,
        "optFormat",
        {
            {
                .index = normal,
                .caption = "&Normal",
                .tooltip = "The game text is stored in normal, readable, form in the .dat file ",
                .place = panel::row(0, column),
                .ticked = true,
            },
            {
                .index = packed,
                .caption = "&Packed",
                .tooltip =
                    "The game text is stored in compressed, unreadable, form in the .dat file ",
                .place = panel::row(1, column),
            },
        },
        [this](int index) { optFormat_Click(index); },
    };
    forms::Groove formatGroove{
        fraFormat,
        {.name = "Line2"},
        {.name = "Line3"},
        {120, grooveTop, column - 240},
    };
    forms::CheckBox chkDebug{
        fraFormat,
        {
            .name = "chkDebug",
            .caption = "&Debug",
            .tooltip =
                "The game is compiled with extra information required for playing in debug mode",
            .place = panel::row(2, column, grooveGap),
            .event = [this] { chkDebug_Click(); },
        },
    };

    forms::Frame fraMsgOption{
        fraSample2,
        {
            .name = "fraMsgOption",
            .caption = "Compiler Message Options",
            .tooltip = "Set format of compiler message file",
            .place = {rightColumn, panel::optionsTop, column, upperHeight},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optEditor{
        fraMsgOption,
        "optEditor",
        {
            {
                .index = notepad,
                .caption = "Use N&otepad",
                .tooltip = "Display compiler messages in Windows Notepad",
                .place = panel::row(0, column),
                .ticked = true,
            },
            {
                .index = textEditor,
                .caption = "Use my text &Editor",
                .tooltip = "Display compiler messages in text editor (see Options)",
                .place = panel::row(1, column),
            },
        },
        [this](int index) { optEditor_Click(index); },
    };
    forms::Groove messageGroove{
        fraMsgOption,
        {.name = "Line8"},
        {.name = "Line9"},
        {120, grooveTop, column - 240},
    };
    forms::CheckBox chkFullsource{
        fraMsgOption,
        {
            .name = "chkFullsource",
            .caption = "List &full sourcecode",
            .tooltip = "Print ALL the game source code in compiler message file",
            .place = panel::row(2, column, grooveGap),
            .event = [this] { chkFullsource_Click(); },
        },
    };

    forms::Frame fraCharset{
        fraSample2,
        {
            .name = "fraCharset",
            .caption = "Source Character Set",
            .tooltip = "Tell compiler if source code was written with text editor which uses "
                       "non-standard character set",
            .place = {panel::left, secondRow, column, panel::frameHeight(3)},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optCharset{
        fraCharset,
        "optCharset",
        {
            {
                .index = 0,
                .caption = "Normal",
                .tooltip = "Normal Windows/DOS text format",
                .accessibleName = "Normal character set",
                .place = panel::row(0, column),
                .ticked = true,
            },
            {
                .index = 1,
                .caption = "ISO",
                .tooltip = "Source file uses extended \"ISO\" character set",
                .place = panel::row(1, column),
            },
            {
                .index = 2,
                .caption = "Macintosh",
                .tooltip = "Source file uses Apple MacIntosh extended character set",
                .place = panel::row(2, column),
            },
        },
        [this](int index) { optCharset_Click(index); },
    };

    forms::Frame fraIncludes{
        fraSample2,
        {
            .name = "fraIncludes",
            .caption = "'Include' Folders Search List",
            .place = {rightColumn, secondRow, column, panel::frameHeight(3)},
            .visible = false,
        },
    };
    forms::ListBox lstInclude{
        fraIncludes,
        {
            .name = "lstInclude",
            .tooltip =
                "(Optional) List of file folders to search for any $included source files not "
                "in same folder as the source file",
            .place = {120, 330, 1725, 780},
        },
    };
    forms::Button btnModifyIncludes{
        fraIncludes,
        {
            .name = "btnModifyIncludes",
            .caption = "&Modify",
            .tooltip = "Add, remove or change file folders listed",
            .place = {1920, 315, 810, 375},
            .event = [this] { btnModifyIncludes_Click(); },
        },
    };

    forms::Label lblCmdline{
        fraSample2,
        {
            .name = "lblCmdline",
            .caption = "Command Lines",
            .place = panel::commandLabel,
            .visible = false,
        },
    };
    forms::TextBox txtCmdline{
        fraSample2,
        {
            .name = "txtCmdline",
            .tooltip =
                "(Unmodifiable) Informational display of commands required to compile source "
                "file with specified options",
            .place = panel::commandText,
            .visible = false,
            .readOnly = true,
            .multiLine = true,
        },
    };

    /// Shared by the Browse buttons of all panels.
    forms::CommonDialog CommonDialog1{fraSample2, {.name = "CommonDialog1"}};
};

}  // namespace tools
