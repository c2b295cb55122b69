#pragma once

namespace forms {

/// The longest name that a file dialog returns, in UTF-16 code units, and the error for a longer
/// one.
inline constexpr int longestName = 260;
inline constexpr const char* nameTooLong = "The file name is longer than 260 characters";

}  // namespace forms
