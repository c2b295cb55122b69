#include "dialogs/frm_include_add.h"

#include "core/text.h"

namespace dialogs {

using core::Runtime;

frmIncludeAdd::frmIncludeAdd(forms::Application& application, core::Program& program,
                             forms::ListBox& list)
    : Form(application, "frmIncludeAdd",
           {.caption = "Add or Edit Include folder", .place = {0, 0, 5460, 3900}}),
      program_(program),
      list_(list) {}

void frmIncludeAdd::Form_Activate() {
    if (core::drivePart(txtFolder.Text()).empty()) return;

    Runtime& runtime = program_.runtime;
    bool failed = false;
    bool shown = false;
    // A step that fails moves the folder list to "c:\", and later steps read the text again. If
    // "c:\" fails too, the lists stay as they are.
    const auto attempt = [&](const std::function<void()>& step) {
        try {
            step();
        } catch (const core::RuntimeError&) {
            failed = true;
            runtime.rtcMsgBox("Folder " + txtFolder.Text() + " not found.", Runtime::okOnly);
            try {
                Dir1.Path = "c:\\";
            } catch (const core::RuntimeError& error) {
                if (!shown) runtime.rtcMsgBox(error.what(), Runtime::exclamation);
                shown = true;
            }
        }
    };

    attempt([&] { Dir1.Path = txtFolder.Text(); });
    const std::string given = txtFolder.Text;  // selecting the drive rewrites the text
    attempt([&] { Drive1.Drive = std::string(core::drivePart(given)); });
    attempt([&] { Dir1.Path = failed ? txtFolder.Text() : given; });
}

void frmIncludeAdd::OKButton_Click() {
    const std::string& folder = txtFolder.Text;
    // An empty entry would end the list.
    if (folder.find_first_not_of(' ') != std::string::npos) {
        if (program_.state.AddingFolder) {
            list_.AddItem(folder);
        } else {
            list_.setList(list_.ListIndex, folder);
        }
    }
    Unload();
}

}  // namespace dialogs
