#pragma once

#include <string>

#include "core/module1.h"
#include "forms/controls.h"
#include "tools/command_script.h"
#include "tools/panel.h"

namespace tools {

/// Plays a compiled game: keeps player, recording, replay and debugger consistent, builds the
/// player's command line, checks the files and runs it.
///
/// Handlers of mutually exclusive options change or disable the other control. They rely on nested
/// events: RecordOption and KbugOption are cleared only by the handlers that such a change
/// triggers.
class PlayPanel {
  public:
    PlayPanel(core::Program& program, CommandScript& script, forms::CommonDialog& dialog,
              forms::Container& panel);

    enum Player { windowsGui, windowsConsole, msdosConsole };  ///< indices of optPlayer
    /// Indices of optRecord. A recording has the index of the only player that can make it.
    enum Recording { none, transcript = windowsConsole, commands = msdosConsole };

    /// Rebuilds the command text; sets FileStem and FileBase to the game.
    void UpdateCmdlineP();
    [[nodiscard]] Player player() const;

  private:
    void btnBrowseP_Click();
    void btnPlay_Click();
    void chkHideP_Click();
    void optPlayer_Click(int /*index*/) { UpdateCmdlineP(); }
    void chkKbug_Click();
    void chkTrace_Click();
    void chkSingle_Click();
    void optRecord_Click(int index);
    void chkPlayback_Click();
    void txtFnameP_Change() { UpdateCmdlineP(); }
    void txtLogfile_Change();
    void btnBrowselog_Click();

    void startPlayback();
    void endPlayback();
    void forcePlayer(int recording);
    void enableLogfile(bool enabled);

    core::Program& program_;
    CommandScript& script_;
    forms::CommonDialog& dialog_;
    forms::Container& panel_;

    // Each is its part of the command with a leading blank, or empty.
    std::string KbugOption;
    std::string TraceOption;
    std::string SingleOption;
    std::string RecordOption;
    std::string PlaybackOption;

    static constexpr int gap = 90;
    static constexpr int playerWidth = 1800;
    static constexpr int modeWidth = 1890;
    static constexpr int recordWidth = panel::width - playerWidth - modeWidth - 2 * gap;
    static constexpr int modeLeft = panel::left + playerWidth + gap;
    static constexpr int recordLeft = modeLeft + modeWidth + gap;
    static constexpr int secondRow = panel::optionsTop + panel::frameHeight(3) + 105;

  public:
    forms::Frame fraSample3{panel_, {.name = "fraSample3", .place = panel::whole}};
    forms::Label Label5{
        fraSample3,
        {
            .name = "Label5",
            .caption = "KELM game file",
            .place = panel::fileLabel,
        },
    };
    forms::TextBox txtFnameP{
        fraSample3,
        {
            .name = "txtFnameP",
            .text = "mygame.kcd",
            .tooltip = "Name of game file to play",
            .place = panel::fileText,
            .holdsPath = true,
            .event = [this] { txtFnameP_Change(); },
        },
    };
    forms::Button btnBrowseP{
        fraSample3,
        {
            .name = "btnBrowseP",
            .caption = panel::browseCaption,
            .tooltip = "open a file-browse dialog box to select desired game file",
            .accessibleName = "Browse for the game file",
            .place = panel::browseButton,
            .event = [this] { btnBrowseP_Click(); },
        },
    };
    forms::Button btnPlay{
        fraSample3,
        {
            .name = "btnPlay",
            .caption = "&Play",
            .tooltip = "Play the selected game using any options settings below",
            .place = panel::actionButton,
            .isDefault = true,
            .event = [this] { btnPlay_Click(); },
        },
    };
    forms::CheckBox chkHideP{
        fraSample3,
        {
            .name = "chkHideP",
            .caption = panel::hideCaption,
            .tooltip = panel::hideTooltip,
            .place = panel::hideBox,
            .ticked = true,
            .event = [this] { chkHideP_Click(); },
        },
    };
    forms::Groove rule{
        fraSample3,
        {.name = "Line1", .index = 7},
        {.name = "Line4"},
        {panel::left, panel::ruleTop, panel::width},
    };

    forms::Frame fraPlayer{
        fraSample3,
        {
            .name = "fraPlayer",
            .caption = "Player Version",
            .tooltip = "Select a version of the Kelm game player software (\"Krun\") to play the "
                       "game with",
            .place = {panel::left, panel::optionsTop, playerWidth, panel::frameHeight(3)},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optPlayer{
        fraPlayer,
        "optPlayer",
        {
            {
                .index = windowsGui,
                .caption = "&Windows GUI",
                .tooltip = "Play game using the Windows graphics mode \"WinGlk\" version of Krun",
                .place = panel::row(0, playerWidth),
            },
            {
                .index = windowsConsole,
                .caption = "Windows &Console",
                .tooltip = "Play game using the Windows text-mode version of Krun",
                .place = panel::row(1, playerWidth),
                .ticked = true,
            },
            {
                .index = msdosConsole,
                .caption = "&MSDOS Console",
                .tooltip = "Play game using the basic MSDOS text-mode version of Krun",
                .place = panel::row(2, playerWidth),
            },
        },
        [this](int index) { optPlayer_Click(index); },
    };

    forms::Frame fraMode{
        fraSample3,
        {
            .name = "fraMode",
            .caption = "Game Debug Options",
            .tooltip = "Specify whether to play the game normally or in 'debug' mode",
            .place = {modeLeft, panel::optionsTop, modeWidth, panel::frameHeight(3)},
            .visible = false,
        },
    };
    forms::CheckBox chkKbug{
        fraMode,
        {
            .name = "chkKbug",
            .caption = "Start in '&Kbug'",
            .tooltip = "Enter 'Kbug' debugging program when begin playing the game",
            .place = panel::row(0, modeWidth),
            .event = [this] { chkKbug_Click(); },
        },
    };
    forms::CheckBox chkTrace{
        fraMode,
        {
            .name = "chkTrace",
            .caption = "&Trace",
            .tooltip = "Turn on the debug 'trace' mode ",
            .place = panel::row(1, modeWidth),
            .event = [this] { chkTrace_Click(); },
        },
    };
    forms::CheckBox chkSingle{
        fraMode,
        {
            .name = "chkSingle",
            .caption = "&Single Ins. Trace",
            .tooltip = "Turn on the 'debug' single instruction trace mode",
            .place = panel::row(2, modeWidth),
            .event = [this] { chkSingle_Click(); },
        },
    };

    forms::Frame fraRecord{
        fraSample3,
        {
            .name = "fraRecord",
            .caption = "Recording",
            .tooltip =
                "Specify whether to record the game play to a disk file  (automatically named "
                "<something>.log by 'Krun')",
            .place = {recordLeft, panel::optionsTop, recordWidth, panel::frameHeight(3)},
            .visible = false,
        },
    };
    forms::ControlArray<forms::OptionButton> optRecord{
        fraRecord,
        "optRecord",
        {
            {
                .index = none,
                .caption = "Non&e",
                .tooltip = "Normal play mode - no recording saved to disk",
                .place = panel::row(0, recordWidth),
                .ticked = true,
            },
            {
                .index = transcript,
                .caption = "F&ull Transcript",
                .tooltip =
                    "Record all text displayed while playing to a log file (requires Windows "
                    "Console version)",
                .place = panel::row(1, recordWidth),
            },
            {
                .index = commands,
                .caption = "Pla&yer's Commands",
                .tooltip =
                    "Record a list of the player's commands to a log file (requires MSDOS Console "
                    "version)",
                .place = panel::row(2, recordWidth),
            },
        },
        [this](int index) { optRecord_Click(index); },
    };

    forms::Frame fraPlayback{
        fraSample3,
        {
            .name = "fraPlayback",
            .caption = "Playback Option",
            .tooltip = "Playback only works with the Console mode Player versions",
            .place = {panel::left, secondRow, panel::width, panel::frameHeight(1) + 435},
            .visible = false,
        },
    };
    forms::CheckBox chkPlayback{
        fraPlayback,
        {
            .name = "chkPlayback",
            .caption = "&Replay a recorded \"Player's Commands\" log",
            .tooltip =
                "Play the game using commands recorded in a log file rather than typing them "
                "in on the keyboard",
            .place = panel::row(0, panel::width),
            .event = [this] { chkPlayback_Click(); },
        },
    };
    forms::Label labLogfile{
        fraPlayback,
        {
            .name = "labLogfile",
            .caption = "Log file",
            .place = {120, 690, 810, 225},
            .enabled = false,
        },
    };
    forms::TextBox txtLogfile{
        fraPlayback,
        {
            .name = "txtLogfile",
            .text = "mygame12.log",
            .tooltip = "Name of a previously recorded \"Player's Commands\" log file to playback",
            .place = {960, 630, 3840, 345},
            .enabled = false,
            .holdsPath = true,
            .event = [this] { txtLogfile_Change(); },
        },
    };
    forms::Button btnBrowselog{
        fraPlayback,
        {
            .name = "btnBrowselog",
            .caption = "Bro&wse",
            .tooltip = "open a file-browse dialog box to select desired command log file",
            .accessibleName = "Browse for the log file",
            .place = {4890, 615, 840, 375},
            .enabled = false,
            .event = [this] { btnBrowselog_Click(); },
        },
    };

    forms::Label lblCmdlineP{
        fraSample3,
        {
            .name = "lblCmdlineP",
            .caption = "Command Lines",
            .place = panel::commandLabel,
            .visible = false,
        },
    };
    forms::TextBox txtCmdlineP{
        fraSample3,
        {
            .name = "txtCmdlineP",
            .text = "(text)",
            .tooltip =
                "(Information-only display) List of the MSDOS commands which will be executed "
                "when 'Play' button is clicked",
            .place = panel::commandText,
            .visible = false,
            .readOnly = true,
            .multiLine = true,
        },
    };
};

}  // namespace tools
