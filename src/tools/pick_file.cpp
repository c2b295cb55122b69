#include "tools/pick_file.h"

namespace tools {

void pickFile(forms::CommonDialog& dialog, const std::string& title, const std::string& filter,
              forms::TextBox& box) {
    dialog.DialogTitle = title;
    dialog.Filter = filter;
    dialog.FileName = box.Text;
    dialog.ShowOpen();
    if (!dialog.FileName.empty()) box.Text = dialog.FileName;
}

}  // namespace tools
