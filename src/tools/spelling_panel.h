#pragma once

#include <string>

#include "core/module1.h"
#include "forms/controls.h"
#include "tools/command_script.h"
#include "tools/panel.h"

namespace tools {

/// Extracts the text that players see from a source file: builds the command lines of the extractor
/// and the word processor, checks the files and runs the commands.
class SpellingPanel {
  public:
    SpellingPanel(core::Program& program, CommandScript& script, forms::CommonDialog& dialog,
                  forms::Container& panel);

    /// Enables the options whose programs are set; disables and deselects the others. Called when
    /// the panel is shown.
    void fitToPaths();
    /// Rebuilds the command text; sets FileStem and FileBase to the source.
    void UpdateCmdlineS();

  private:
    void txtFnameS_Change();
    void btnBrowseS_Click();
    void btnExtract_Click();
    void chkHideS_Click();
    void chkOutputfile_Click();
    void txtFnameO_Change() { UpdateCmdlineS(); }
    void btnBrowseO_Click();
    void chkOverwrite_Click();
    void chkAutoOpen_Click() { UpdateCmdlineS(); }
    void optCodes_Click(int index);
    void optParam_Click(int index);
    void chkLineNum_Click();

    void showDefaultName();
    [[nodiscard]] bool hasOutputName() const;
    [[nodiscard]] bool mayWriteOutput() const;

    core::Program& program_;
    CommandScript& script_;
    forms::CommonDialog& dialog_;
    forms::Container& panel_;

    // Each is its part of the command with a leading blank, or empty.
    std::string OverwriteOption;
    std::string CodesOption;
    std::string ParamOption;
    std::string LineNumOption;

    static constexpr int gap = 90;
    static constexpr int codesWidth = 2700;
    static constexpr int paramWidth = panel::width - codesWidth - gap;
    static constexpr int paramLeft = panel::left + codesWidth + gap;
    static constexpr int nameTop = 600;
    static constexpr int nameHeight = 360;
    static constexpr int outputHeight = panel::frameHeight(3) + nameHeight;
    static constexpr int secondRow = panel::optionsTop + outputHeight + 60;

  public:
    forms::Frame fraSample4{panel_, {.name = "fraSample4", .place = panel::whole}};
    forms::Label Label3{
        fraSample4,
        {
            .name = "Label3",
            .caption = "KELM source code file",
            .place = panel::fileLabel,
        },
    };
    forms::TextBox txtFnameS{
        fraSample4,
        {
            .name = "txtFnameS",
            .text = "mygame.kel",
            .tooltip = "Name of source code file from which you want to extract text to spellcheck",
            .place = panel::fileText,
            .holdsPath = true,
            .event = [this] { txtFnameS_Change(); },
        },
    };
    forms::Button btnBrowseS{
        fraSample4,
        {
            .name = "btnBrowseS",
            .caption = panel::browseCaption,
            .tooltip = "open a file-browse dialog box to select desired source code file",
            .accessibleName = "Browse for the source file",
            .place = panel::browseButton,
            .event = [this] { btnBrowseS_Click(); },
        },
    };
    forms::Button btnExtract{
        fraSample4,
        {
            .name = "btnExtract",
            .caption = "&Extract",
            .tooltip = "Extract the text from the specified file",
            .place = panel::actionButton,
            .isDefault = true,
            .event = [this] { btnExtract_Click(); },
        },
    };
    forms::CheckBox chkHideS{
        fraSample4,
        {
            .name = "chkHideS",
            .caption = panel::hideCaption,
            .tooltip = panel::hideTooltip,
            .place = panel::hideBox,
            .ticked = true,
            .event = [this] { chkHideS_Click(); },
        },
    };
    forms::Groove rule{
        fraSample4,
        {.name = "Line1", .index = 6},
        {.name = "Line5"},
        {panel::left, panel::ruleTop, panel::width},
    };

    forms::Frame fraOutputFile{
        fraSample4,
        {
            .name = "fraOutputFile",
            .caption = "Output File",
            .tooltip = "Output file will contain the player text from the game source code file "
                       "selected above",
            .place = {panel::left, panel::optionsTop, panel::width, outputHeight},
            .visible = false,
        },
    };
    forms::CheckBox chkOutputfile{
        fraOutputFile,
        {
            .name = "chkOutputfile",
            .caption = "&Choose a name for output file",
            .tooltip = "Select this option if you want to name the output file yourself",
            .place = panel::row(0, panel::width),
            .event = [this] { chkOutputfile_Click(); },
        },
    };
    // The default name and the box for a chosen name share a row; one of them is visible.
    forms::Label lblDefname{
        fraOutputFile,
        {
            .name = "lblDefname",
            .caption = "(default=<sourcefile>.txt)",
            .tooltip = "By default output file will be given the same name as the source code file "
                       "but with \".txt\" appended to it.",
            .place = {375, nameTop + 60, 5280, 225},
        },
    };
    forms::Label lblDefaultFilename{
        fraOutputFile,
        {
            .name = "lblDefaultFilename",
            .caption = "Output filename",
            .place = {375, nameTop + 60, 1350, 225},
            .visible = false,
        },
    };
    forms::TextBox txtFnameO{
        fraOutputFile,
        {
            .name = "txtFnameO",
            .tooltip = "Name of file to store extracted text",
            .place = {1740, nameTop, 3060, 345},
            .visible = false,
            .holdsPath = true,
            .event = [this] { txtFnameO_Change(); },
        },
    };
    forms::Button btnBrowseO{
        fraOutputFile,
        {
            .name = "btnBrowseO",
            .caption = "Brow&se",
            .tooltip = "open a file-browse dialog box to select a text file",
            .accessibleName = "Browse for the output file",
            .place = {4890, nameTop - 15, 840, 360},
            .visible = false,
            .event = [this] { btnBrowseO_Click(); },
        },
    };
    forms::CheckBox chkOverwrite{
        fraOutputFile,
        {
            .name = "chkOverwrite",
            .caption = "&Overwrite any existing file with same name",
            .tooltip =
                "Select this option if you're sure its OK to overwrite an existing file with "
                "the same name as that chosen for the extract output file",
            .place = panel::row(1, panel::width, nameHeight),
            .event = [this] { chkOverwrite_Click(); },
        },
    };
    forms::CheckBox chkAutoOpen{
        fraOutputFile,
        {
            .name = "chkAutoOpen",
            .caption = "Automatically open output file in &Wordprocessor",
            .tooltip = "After text is extracted, open the output file immediately in your "
                       "wordprocessing program so you can spellcheck it",
            .place = panel::row(2, panel::width, nameHeight),
            .ticked = true,
            .event = [this] { chkAutoOpen_Click(); },
        },
    };

    forms::Frame fraCodes{
        fraSample4,
        {
            .name = "fraCodes",
            .caption = "Formatting Codes",
            .tooltip = "Specify how the Kelm formatting codes (eg: $p, $n) are displayed in the "
                       "output file",
            .place = {panel::left, secondRow, codesWidth, panel::frameHeight(4)},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optCodes{
        fraCodes,
        "optCodes",
        {
            {
                .index = 0,
                .caption = "Fo&rmat Output with the Codes",
                .tooltip =
                    "Use the Kelm formatting codes to format the output as Kelm would display "
                    "them in the game",
                .place = panel::row(0, codesWidth),
                .ticked = true,
            },
            {
                .index = 1,
                .caption = "&Print Format Codes in Output",
                .tooltip =
                    "Show the formatting codes in the output file as they appear in the source "
                    "code file",
                .place = panel::row(1, codesWidth),
            },
            {
                .index = 2,
                .caption = "Remo&ve codes from Output",
                .tooltip = "Remove the formatting codes from the output file",
                .place = panel::row(2, codesWidth),
            },
        },
        [this](int index) { optCodes_Click(index); },
    };

    forms::Frame fraParam{
        fraSample4,
        {
            .name = "fraParam",
            .caption = "Parameter Codes",
            .tooltip = "Specify how Kelm parameter codes (eg: $1, $o) appear in output file",
            .place = {paramLeft, secondRow, paramWidth, panel::frameHeight(4)},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optParam{
        fraParam,
        "optParam",
        {
            {
                .index = 0,
                .caption = "Convert to words (&Uppercase)",
                .tooltip = "Display parameter codes as uppercase words (eg $o=OBJECT)",
                .place = panel::row(0, paramWidth),
                .ticked = true,
            },
            {
                .index = 1,
                .caption = "Convert to words (in &Quote-marks)",
                .tooltip = "Display parameter codes as words in quotemarks (eg $o='object')",
                .place = panel::row(1, paramWidth),
            },
            {
                .index = 2,
                .caption = "Pri&nt codes in Output",
                .tooltip = "Display the codes as they appear in the source code file",
                .place = panel::row(2, paramWidth),
            },
            {
                .index = 3,
                .caption = "Re&move codes from Output",
                .tooltip = "Don't show the codes at all in the output file",
                .accessibleName = "Remove codes from Output (parameters)",
                .place = panel::row(3, paramWidth),
            },
        },
        [this](int index) { optParam_Click(index); },
    };

    forms::CheckBox chkLineNum{
        fraSample4,
        {
            .name = "chkLineNum",
            .caption = "&Don't show line numbers in output file",
            .tooltip = "Don't list the sourcecode line number for each paragraph onleft side of "
                       "output file",
            .place = {240, secondRow + panel::frameHeight(4) + 45, 4500, panel::rowHeight},
            .visible = false,
            .event = [this] { chkLineNum_Click(); },
        },
    };

    forms::Label lblCmdlineS{
        fraSample4,
        {
            .name = "lblCmdlineS",
            .caption = "Command Lines",
            .place = panel::commandLabel,
            .visible = false,
        },
    };
    forms::TextBox txtCmdlineS{
        fraSample4,
        {
            .name = "txtCmdlineS",
            .text = "(text)",
            .tooltip =
                "(Information-only display) List of the MSDOS commands which will be executed "
                "when 'Extract' button is clicked",
            .place = panel::commandText,
            .visible = false,
            .readOnly = true,
            .multiLine = true,
        },
    };
};

}  // namespace tools
