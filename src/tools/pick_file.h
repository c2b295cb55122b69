#pragma once

#include <string>

#include "forms/controls.h"

namespace tools {

/// Shows the file dialog with the box's text as the name offered, and puts the chosen name into the
/// box. Cancelling leaves the box as it is.
void pickFile(forms::CommonDialog& dialog, const std::string& title, const std::string& filter,
              forms::TextBox& box);

}  // namespace tools
