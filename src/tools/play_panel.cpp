#include "tools/play_panel.h"

#include "core/text.h"
#include "tools/checks.h"
#include "tools/pick_file.h"

namespace tools {

using core::AppState;
using core::crlf;
using core::exists;
using core::Runtime;

namespace {

// Indexed like optPlayer.
constexpr struct {
    std::string AppState::*path;
    const char* name;  ///< begins the message for a missing player
} players[] = {
    {&AppState::GuiPlayerPath, "Windows GUI player program "},
    {&AppState::ConsolePlayerPath, "Windows Console player program "},
    {&AppState::DosPlayerPath, "MSDOS player program "},
};

}  // namespace

PlayPanel::PlayPanel(core::Program& program, CommandScript& script, forms::CommonDialog& dialog,
                     forms::Container& panel)
    : program_(program), script_(script), dialog_(dialog), panel_(panel) {}

PlayPanel::Player PlayPanel::player() const {
    for (const Player player : {windowsGui, windowsConsole})
        if (optPlayer(player).Value) return player;
    return msdosConsole;
}

void PlayPanel::btnBrowseP_Click() {
    pickFile(dialog_, "Select game file", "Game ('Kcode') File (*.kcd)|*.kcd|All Files (*.*)|*.*",
             txtFnameP);
}

void PlayPanel::btnBrowselog_Click() {
    pickFile(dialog_, "Select command-log file", "Log File (*.log)|*.log|All Files (*.*)|*.*",
             txtLogfile);
}

void PlayPanel::UpdateCmdlineP() {
    const std::string& fileText = txtFnameP.Text;
    script_.SplitFileName(fileText, txtCmdlineP);
    txtCmdlineP.Text += core::quoted(program_.state.*players[player()].path);
    script_.ShortenStem(fileText, {".kcd"});
    txtCmdlineP.Text += " " + script_.FileStem + KbugOption + TraceOption + SingleOption +
                        RecordOption + PlaybackOption + crlf;
}

void PlayPanel::btnPlay_Click() {
    Runtime& runtime = program_.runtime;
    UpdateCmdlineP();

    const auto& chosen = players[player()];
    if (!requireProgram(runtime, chosen.name, program_.state.*chosen.path,
                        " not found. Please check program location settings.")) {
        return;
    }
    const std::string game = script_.FileBase + ".kcd";
    if (!exists(runtime, game)) {
        runtime.rtcMsgBox("Kelm game file " + core::quoted(game) + " not found", Runtime::okOnly);
        return;
    }
    if (!requireStem(runtime, script_.FileStem, game)) return;
    script_.RunCommandScript(
        txtCmdlineP.Text, false,
        player() == windowsGui ? Runtime::normalFocus : Runtime::maximisedFocus);
}

void PlayPanel::chkKbug_Click() {
    if (chkKbug.Value) {
        KbugOption = " -d";
        if (optRecord(transcript).Value) optRecord(none).Value = true;
        optRecord(transcript).Enabled = false;
    } else {
        KbugOption.clear();
        optRecord(transcript).Enabled = true;
    }
    UpdateCmdlineP();
}

void PlayPanel::chkTrace_Click() {
    TraceOption = chkTrace.Value ? " -t" : "";
    UpdateCmdlineP();
}

void PlayPanel::chkSingle_Click() {
    SingleOption = chkSingle.Value ? " -s" : "";
    UpdateCmdlineP();
}

void PlayPanel::optRecord_Click(int index) {
    if (index != none) {
        forcePlayer(index);
        RecordOption = " -L";
    } else {
        if (!chkPlayback.Value) optPlayer(windowsGui).Enabled = true;
        optPlayer(windowsConsole).Enabled = true;
        optPlayer(msdosConsole).Enabled = true;
        RecordOption.clear();
    }
    UpdateCmdlineP();
}

/// Selects the only player that can make the recording.
void PlayPanel::forcePlayer(int recording) {
    optPlayer(recording).Value = true;
    for (const Player player : {windowsGui, windowsConsole, msdosConsole})
        optPlayer(player).Enabled = player == recording;
}

void PlayPanel::chkPlayback_Click() {
    if (chkPlayback.Value) {
        startPlayback();
    } else {
        endPlayback();
    }
    UpdateCmdlineP();
}

void PlayPanel::startPlayback() {
    if (optPlayer(windowsGui).Value) optPlayer(windowsConsole).Value = true;
    optPlayer(windowsGui).Enabled = false;
    chkKbug.Value = 0;
    chkKbug.Enabled = false;
    if (optRecord(commands).Value) optRecord(none).Value = true;
    optRecord(commands).Enabled = false;
    enableLogfile(true);
    PlaybackOption = " < " + txtLogfile.Text();
}

void PlayPanel::endPlayback() {
    if (!optRecord(transcript).Value) optPlayer(windowsGui).Enabled = true;
    chkKbug.Enabled = true;
    optRecord(commands).Enabled = true;
    enableLogfile(false);
    PlaybackOption.clear();
}

void PlayPanel::enableLogfile(bool enabled) {
    labLogfile.Enabled = enabled;
    txtLogfile.Enabled = enabled;
    btnBrowselog.Enabled = enabled;
}

void PlayPanel::txtLogfile_Change() {
    PlaybackOption = " < " + txtLogfile.Text();
    UpdateCmdlineP();
}

void PlayPanel::chkHideP_Click() {
    panel::applyHideBox(chkHideP, {&fraPlayer, &fraMode, &fraRecord, &fraPlayback},
                        {&lblCmdlineP, &txtCmdlineP});
}

}  // namespace tools
