#include "tools/edit_panel.h"

#include "core/text.h"
#include "tools/checks.h"

namespace tools {

using core::Runtime;

EditPanel::EditPanel(core::Program& program, forms::Container& panel)
    : program_(program), panel_(panel) {}

void EditPanel::btnEdit_Click() {
    Runtime& runtime = program_.runtime;
    const std::string& editor = program_.state.EditorPath;
    const std::string& file = txtFnameE.Text;
    if (optEditWith(0).Value && !requireEditor(runtime, editor)) return;
    runtime.rtcShell(
        optEditWith(1).Value ? "notepad " + file : core::quoted(editor) + " " + core::quoted(file),
        Runtime::normalFocus);
}

void EditPanel::fitToPaths() {
    const bool hasEditor = !program_.state.EditorPath.empty();
    optEditWith(0).Enabled = hasEditor;
    if (!hasEditor) optEditWith(1).Value = true;
}

void EditPanel::chkHideE_Click() {
    panel::applyHideBox(chkHideE, {&fraEditor});
}

}  // namespace tools
