#include "tools/compile_panel.h"

#include "core/text.h"
#include "tools/checks.h"
#include "tools/pick_file.h"

namespace tools {

using core::crlf;
using core::exists;
using core::Runtime;

// Indexed like optCharset.
static constexpr const char* charsetOptions[] = {"", " -CharSet ISO", " -CharSet Mac"};

CompilePanel::CompilePanel(core::Program& program, CommandScript& script, forms::Container& panel,
                           std::function<void()> editIncludes)
    : program_(program), script_(script), panel_(panel), editIncludes_(std::move(editIncludes)) {}

void CompilePanel::UpdateCmdline() {
    Runtime& runtime = program_.runtime;
    const std::string& fileText = txtFname.Text;

    script_.SplitFileName(fileText, txtCmdline);
    txtCmdline.Text += core::quoted(program_.state.CompilerPath);
    for (int entry = 0; entry < lstInclude.ListCount(); ++entry) {
        txtCmdline.Text +=
            " -Include " + core::quoted(core::GetShortName(runtime, lstInclude.List(entry)));
    }
    script_.ShortenStem(fileText, {".kel", ".kelm"});
    txtCmdline.Text += " " + script_.FileStem + PackOption + DebugOption + FullOption +
                       CharsetOption + " -List -Height 0" + crlf;
    txtCmdline.Text += ViewerPrefix + script_.FileStem + ".lis" + crlf;
    txtCmdline.Text += std::string("exit") + crlf;
}

void CompilePanel::btnCompile_Click() {
    Runtime& runtime = program_.runtime;
    const core::AppState& state = program_.state;
    UpdateCmdline();
    // Copies: while the question is open, another panel can be rebuilt.
    const std::string FileBase = script_.FileBase;
    const std::string FileStem = script_.FileStem;

    const std::string source = requireSource(runtime, FileBase);
    if (source.empty()) return;

    const std::string game = FileBase + ".kcd";
    if (exists(runtime, game) && runtime.rtcFileDateTime(game) > runtime.rtcFileDateTime(source)) {
        const auto answer = runtime.rtcMsgBox(
            "The current compiled game is newer than the currently saved version of the source "
            "code file. If you are editing the source code file, you may need to save it to disk "
            "before running this compile.\r\n\r\nDo you want to recompile the game now?",
            Runtime::yesNo, "Game newer than Source");
        if (answer == Runtime::Answer::No) return;
    }

    if (optEditor(textEditor).Value && !requireEditor(runtime, state.EditorPath)) return;
    if (!requireProgram(runtime, "Kelm compiler program ", state.CompilerPath,
                        " not found. Please check program location in Settings menu.")) {
        return;
    }
    if (!requireStem(runtime, FileStem, source)) return;
    script_.RunCommandScript(txtCmdline.Text, true, Runtime::normalFocus);
}

void CompilePanel::chooseViewer() {
    ViewerPrefix =
        optEditor(textEditor).Value ? core::quoted(program_.state.EditorPath) + " " : "notepad ";
}

void CompilePanel::fitToPaths() {
    const bool hasEditor = !program_.state.EditorPath.empty();
    optEditor(textEditor).Enabled = hasEditor;
    if (!hasEditor) optEditor(notepad).Value = true;
}

void CompilePanel::chkHideC_Click() {
    panel::applyHideBox(chkHideC, {&fraIncludes, &fraFormat, &fraMsgOption, &fraCharset},
                        {&lblCmdline, &txtCmdline});
}

void CompilePanel::optFormat_Click(int index) {
    PackOption = index == packed ? " -Pack" : "";
    UpdateCmdline();
}

void CompilePanel::chkDebug_Click() {
    DebugOption = chkDebug.Value ? " -Debug" : "";
    UpdateCmdline();
}

void CompilePanel::optEditor_Click(int) {
    chooseViewer();
    UpdateCmdline();
}

void CompilePanel::chkFullsource_Click() {
    FullOption = chkFullsource.Value ? " -Full" : "";
    UpdateCmdline();
}

void CompilePanel::optCharset_Click(int index) {
    CharsetOption = charsetOptions[index];
    UpdateCmdline();
}

void CompilePanel::btnBrowse_Click() {
    pickFile(CommonDialog1, panel::sourceTitle, panel::sourceFilter, txtFname);
}

void CompilePanel::btnModifyIncludes_Click() {
    editIncludes_();
    UpdateCmdline();
}

}  // namespace tools
