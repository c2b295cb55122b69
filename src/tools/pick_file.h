#pragma once

#include <string>

#include "forms/controls.h"

namespace tools {

/// Lets the user choose a file, offering the text of the box, and puts the chosen name into the
/// box. A name that the user did not choose changes nothing.
void pickFile(forms::CommonDialog& dialog, const std::string& title, const std::string& filter,
              forms::TextBox& box);

}  // namespace tools
