#include "dialogs/frm_include_list.h"

#include "core/settings_file.h"
#include "dialogs/frm_include_add.h"

namespace dialogs {

frmIncludeList::frmIncludeList(forms::Application& application, core::Program& program)
    : Form(application, "frmIncludeList",
           {.caption = "Include File search list", .place = {0, 0, 5715, 3525}}),
      program_(program) {}

void frmIncludeList::List1_Click() {
    const bool selected = List1.ListIndex >= 0;
    for (forms::Button* button : {&btnChange, &btnDelete, &btnUp, &btnDown}) {
        button->Enabled = selected;
    }
}

void frmIncludeList::btnAdd_Click() {
    if (List1.ListCount() >= core::maxIncludes) {
        program_.runtime.rtcMsgBox("The search list is full. It can hold 20 folders.",
                                   core::Runtime::okOnly);
        return;
    }
    askFolder(true, "Select folder to add to search list", "");
    List1.ListIndex = List1.ListCount() - 1;
}

void frmIncludeList::btnChange_Click() {
    askFolder(false, "Edit folder name", List1.Text());
}

void frmIncludeList::askFolder(bool adding, const std::string& caption, const std::string& folder) {
    program_.state.AddingFolder = adding;
    auto& dialog = application().load<frmIncludeAdd>(program_, List1);
    dialog.Caption = caption;
    dialog.txtFolder.Text = folder;
    dialog.ShowModal(*this);
}

void frmIncludeList::btnDelete_Click() {
    List1.RemoveItem(List1.ListIndex);
    List1.SetFocus();  // otherwise the focus moves to Cancel, and Enter would press it
    List1_Click();
}

void frmIncludeList::btnUp_Click() {
    if (List1.ListIndex >= 1) moveSelected(-1);
}

void frmIncludeList::btnDown_Click() {
    if (List1.ListIndex < List1.ListCount() - 1) moveSelected(1);
}

void frmIncludeList::moveSelected(int by) {
    const std::string folder = List1.Text();
    const int index = List1.ListIndex;
    List1.RemoveItem(index);
    List1.AddItem(folder, index + by);
    List1.ListIndex = index + by;
}

void frmIncludeList::btnClose_Click() {
    auto& folders = program_.state.IncludeFolders;
    forms::ListBox& lstInclude = program_.state.ConsoleForm->lstInclude();
    lstInclude.Clear();
    for (int i = 0; i < List1.ListCount(); ++i) {
        folders[i] = List1.List(i);
        lstInclude.AddItem(folders[i]);
    }
    folders[List1.ListCount()].clear();
    core::SaveSettings(program_);
    Unload();
}

}  // namespace dialogs
