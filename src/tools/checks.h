#pragma once

#include <string>
#include <string_view>

#include "core/runtime.h"

/// The checks in front of a launch. Each tells the user what is missing.
namespace tools {

/// True if the program exists; else shows the path between the two texts.
bool requireProgram(core::Runtime& runtime, std::string_view before, const std::string& path,
                    std::string_view behind);

/// As requireProgram, for the user's text editor.
bool requireEditor(core::Runtime& runtime, const std::string& path);

/// The source file with the given drive, folder and stem, under ".kel" or else ".kelm". If there
/// is neither, tells so and gives the empty text.
std::string requireSource(core::Runtime& runtime, const std::string& fileBase);

/// True if a tool can be told the file, which exists, by the stem that stands for it in the
/// commands. It cannot if there is no short path that is short enough, or if the drive keeps no
/// short names and the long stem holds blanks: the tool would see several names.
bool requireStem(core::Runtime& runtime, const std::string& stem, const std::string& file);

}  // namespace tools
