#include "console/frm_console.h"
#include "tools/pick_file.h"

namespace console {

/// Connects the panels' Browse buttons, which differ only in title, filter and text box.
void frmConsole::connectFilePickers() {
    constexpr const char* sourceTitle = "Select source code file";
    constexpr const char* sourceFilter = "Source File (*.kel)|*.kel|All Files (*.*)|*.*";

    const struct {
        forms::Button& button;
        const char* title;
        const char* filter;
        forms::TextBox& box;
    } pickers[] = {
        {edit.btnBrowseE, sourceTitle,
         "Source File (*.kel)|*.kel|Included Source File (*.i)|*.i|All Files (*.*)|*.*",
         edit.txtFnameE},
        {compile.btnBrowse, sourceTitle, sourceFilter, compile.txtFname},
        {play.btnBrowseP, "Select game file",
         "Game ('Kcode') File (*.kcd)|*.kcd|All Files (*.*)|*.*", play.txtFnameP},
        {play.btnBrowselog, "Select command-log file", "Log File (*.log)|*.log|All Files (*.*)|*.*",
         play.txtLogfile},
        {spelling.btnBrowseS, sourceTitle, sourceFilter, spelling.txtFnameS},
        {spelling.btnBrowseO, "Select text file", "Source File (*.txt)|*.txt|All Files (*.*)|*.*",
         spelling.txtFnameO},
    };
    for (const auto& picker : pickers) {
        picker.button.setHandler(
            [this, title = picker.title, filter = picker.filter, &box = picker.box] {
                tools::pickFile(CommonDialog1, title, filter, box);
            });
    }
}

}  // namespace console
