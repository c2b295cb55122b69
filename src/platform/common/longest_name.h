#pragma once

namespace platform {

/// The longest name that a file dialog gives, in UTF-16 units, and what it tells of a longer one.
inline constexpr int longestName = 260;
inline constexpr const char* nameTooLong = "The file name is longer than 260 characters";

}  // namespace platform
