#include "tools/play_panel.h"

#include "core/text.h"
#include "tools/checks.h"

namespace tools {

using core::AppState;
using core::crlf;
using core::exists;
using core::Runtime;

namespace {

struct Player {
    std::string AppState::*path;
    const char* name;  ///< begins the message for a missing player
};

constexpr Player players[] = {
    {&AppState::GuiPlayerPath, "Windows GUI player program "},
    {&AppState::ConsolePlayerPath, "Windows Console player program "},
    {&AppState::DosPlayerPath, "MSDOS player program "},
};

}  // namespace

PlayPanel::PlayPanel(core::Program& program, CommandScript& script, forms::Container& panel)
    : program_(program), script_(script), panel_(panel) {}

int PlayPanel::player() const {
    for (const int index : {0, 1})
        if (optPlayer(index).Value) return index;
    return 2;
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

    const Player& chosen = players[player()];
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
    script_.RunCommandScript(txtCmdlineP.Text, false,
                             optPlayer(0).Value ? Runtime::normalFocus : Runtime::maximisedFocus);
}

void PlayPanel::chkKbug_Click() {
    if (chkKbug.Value) {
        KbugOption = " -d";
        if (optRecord(1).Value) optRecord(0).Value = true;
        optRecord(1).Enabled = false;
    } else {
        KbugOption.clear();
        optRecord(1).Enabled = true;
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
    if (index > 0) {
        forcePlayer(index);
        RecordOption = " -L";
    } else {
        if (!chkPlayback.Value) optPlayer(0).Enabled = true;
        optPlayer(1).Enabled = true;
        optPlayer(2).Enabled = true;
        RecordOption.clear();
    }
    UpdateCmdlineP();
}

/// Only the player with the same index can make a recording of mode 1 or 2.
void PlayPanel::forcePlayer(int index) {
    optPlayer(index).Value = true;
    for (int other : {0, 1, 2})
        optPlayer(other).Enabled = other == index;
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
    if (optPlayer(0).Value) optPlayer(1).Value = true;
    optPlayer(0).Enabled = false;
    chkKbug.Value = 0;
    chkKbug.Enabled = false;
    if (optRecord(2).Value) optRecord(0).Value = true;
    optRecord(2).Enabled = false;
    enableLogfile(true);
    PlaybackOption = " < " + txtLogfile.Text();
}

void PlayPanel::endPlayback() {
    if (!optRecord(1).Value) optPlayer(0).Enabled = true;
    chkKbug.Enabled = true;
    optRecord(2).Enabled = true;
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
