#pragma once

#include <string>
#include <string_view>

#include "core/runtime.h"

/// The checks before a launch. Each shows a message that names what is missing.
namespace tools {

/// True if the program exists; otherwise shows its path between the two texts.
bool requireProgram(core::Runtime& runtime, std::string_view before, const std::string& path,
                    std::string_view after);

/// Like requireProgram, for the user's text editor.
bool requireEditor(core::Runtime& runtime, const std::string& path);

/// Returns the source file with the given drive, folder and stem and the extension ".kel" or else
/// ".kelm". If neither exists, shows a message and returns an empty string.
std::string requireSource(core::Runtime& runtime, const std::string& fileBase);

/// True if the stem names the existing file unambiguously in a command, or if the file has no stem
/// at all; otherwise shows a message. A stem does not name the file if it is empty, since there is
/// no short path of usable length, or if the drive keeps no short names and the long stem contains
/// blanks: the tool would read several names.
bool requireStem(core::Runtime& runtime, const std::string& stem, const std::string& file);

}  // namespace tools
