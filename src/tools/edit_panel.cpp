#include "tools/edit_panel.h"

#include "core/text.h"
#include "tools/checks.h"
#include "tools/pick_file.h"

namespace tools {

using core::Runtime;

EditPanel::EditPanel(core::Program& program, forms::CommonDialog& dialog, forms::Container& panel)
    : program_(program), dialog_(dialog), panel_(panel) {}

void EditPanel::btnBrowseE_Click() {
    pickFile(dialog_, panel::sourceTitle,
             "Source File (*.kel)|*.kel|Included Source File (*.i)|*.i|All Files (*.*)|*.*",
             txtFnameE);
}

void EditPanel::btnEdit_Click() {
    Runtime& runtime = program_.runtime;
    const std::string& editor = program_.state.EditorPath;
    const std::string& file = txtFnameE.Text;
    if (optEditWith(ownEditor).Value && !requireEditor(runtime, editor)) return;
    runtime.rtcShell(optEditWith(notepad).Value ? "notepad " + file
                                                : core::quoted(editor) + " " + core::quoted(file),
                     Runtime::normalFocus);
}

void EditPanel::fitToPaths() {
    const bool hasEditor = !program_.state.EditorPath.empty();
    optEditWith(ownEditor).Enabled = hasEditor;
    if (!hasEditor) optEditWith(notepad).Value = true;
}

void EditPanel::chkHideE_Click() {
    panel::applyHideBox(chkHideE, {&fraEditor});
}

}  // namespace tools
