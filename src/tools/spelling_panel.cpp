#include "tools/spelling_panel.h"

#include "core/text.h"
#include "tools/checks.h"
#include "tools/pick_file.h"

namespace tools {

using core::crlf;
using core::exists;
using core::Runtime;

namespace {

// Indexed like optCodes and optParam.
constexpr const char* codesOptions[] = {" -FF", " -FD", " -FR"};
constexpr const char* paramOptions[] = {" -PC", " -PQ", " -PD", " -PR"};

constexpr const char* overwriteHint =
    "If you wish to overwrite it tick the 'Overwrite existing output file' option and then click "
    "the Extract button again.";

}  // namespace

SpellingPanel::SpellingPanel(core::Program& program, CommandScript& script,
                             forms::CommonDialog& dialog, forms::Container& panel)
    : program_(program),
      script_(script),
      dialog_(dialog),
      panel_(panel),
      CodesOption(codesOptions[0]),
      ParamOption(paramOptions[0]) {}

void SpellingPanel::btnBrowseS_Click() {
    pickFile(dialog_, panel::sourceTitle, panel::sourceFilter, txtFnameS);
}

void SpellingPanel::btnBrowseO_Click() {
    pickFile(dialog_, "Select text file", "Source File (*.txt)|*.txt|All Files (*.*)|*.*",
             txtFnameO);
}

void SpellingPanel::UpdateCmdlineS() {
    const std::string& fileText = txtFnameS.Text;
    const bool named = chkOutputfile.Value;
    script_.SplitFileName(fileText, txtCmdlineS);
    script_.ShortenStem(fileText, {".kel", ".kelm"});

    txtCmdlineS.Text += core::quoted(program_.state.ExtractorPath) + " " + script_.FileStem +
                        OverwriteOption + CodesOption + ParamOption + LineNumOption;
    if (named) txtCmdlineS.Text += "  -OF" + txtFnameO.Text();
    txtCmdlineS.Text += crlf;
    if (chkAutoOpen.Value) {
        const std::string output = named ? txtFnameO.Text() : script_.FileStem + ".txt";
        txtCmdlineS.Text += core::quoted(program_.state.WordProcessorPath) + "  " + output + crlf;
    }
}

void SpellingPanel::btnExtract_Click() {
    Runtime& runtime = program_.runtime;
    const core::AppState& state = program_.state;
    UpdateCmdlineS();
    if (!requireProgram(runtime, "KLex program ", state.ExtractorPath,
                        " not found. Please check program location settings.")) {
        return;
    }
    if (chkAutoOpen.Value &&
        !requireProgram(runtime, "Wordprocessing program ", state.WordProcessorPath,
                        " not found. Please change the program location in the Settings menu or "
                        "just turn off 'open in wordprocessor' option on this panel.")) {
        return;
    }
    const std::string source = requireSource(runtime, script_.FileBase);
    if (source.empty()) return;
    if (!hasOutputName()) return;
    if (!chkOverwrite.Value && !mayWriteOutput()) return;
    if (!requireStem(runtime, script_.FileStem, source)) return;
    script_.RunCommandScript(txtCmdlineS.Text, false, Runtime::normalFocus);
}

/// False if the output file is to have a name of its own and has none, after showing a message.
bool SpellingPanel::hasOutputName() const {
    if (!chkOutputfile.Value || txtFnameO.Text().find_first_not_of(' ') != std::string::npos)
        return true;
    program_.runtime.rtcMsgBox(
        "The output file has no name. Please type one or turn off the 'Choose a name for output "
        "file' option.",
        Runtime::okOnly);
    return false;
}

/// False if the output file already exists, after showing a message.
bool SpellingPanel::mayWriteOutput() const {
    const std::string output = chkOutputfile.Value ? txtFnameO.Text() : script_.FileBase + ".txt";
    if (!exists(program_.runtime, output)) return true;
    program_.runtime.rtcMsgBox("Output file " + core::quoted(output) + " exists. " + overwriteHint,
                               Runtime::okOnly);
    return false;
}

void SpellingPanel::fitToPaths() {
    const bool hasWordProcessor = !program_.state.WordProcessorPath.empty();
    chkAutoOpen.Enabled = hasWordProcessor;
    if (!hasWordProcessor) chkAutoOpen.Value = 0;
}

void SpellingPanel::showDefaultName() {
    lblDefname.Caption = "(Default= " + script_.FileStem + ".txt)";
}

void SpellingPanel::txtFnameS_Change() {
    UpdateCmdlineS();
    showDefaultName();
}

void SpellingPanel::chkOutputfile_Click() {
    // FileStem may meanwhile be another panel's.
    UpdateCmdlineS();
    const bool named = chkOutputfile.Value;
    btnBrowseO.Visible = named;
    lblDefaultFilename.Visible = named;
    txtFnameO.Visible = named;
    lblDefname.Visible = !named;
    if (!named) {
        showDefaultName();
    } else if (txtFnameO.Text().empty()) {
        txtFnameO.Text = script_.FileStem + ".txt";
    }
}

void SpellingPanel::chkOverwrite_Click() {
    OverwriteOption = chkOverwrite.Value ? " -OO" : "";
    UpdateCmdlineS();
}

void SpellingPanel::optCodes_Click(int index) {
    CodesOption = codesOptions[index];
    UpdateCmdlineS();
}

void SpellingPanel::optParam_Click(int index) {
    ParamOption = paramOptions[index];
    UpdateCmdlineS();
}

void SpellingPanel::chkLineNum_Click() {
    LineNumOption = chkLineNum.Value ? " -NL" : "";
    UpdateCmdlineS();
}

void SpellingPanel::chkHideS_Click() {
    panel::applyHideBox(chkHideS, {&fraOutputFile, &fraCodes, &fraParam, &chkLineNum},
                        {&lblCmdlineS, &txtCmdlineS});
}

}  // namespace tools
