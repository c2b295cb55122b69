#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Returns the text case-folded by the rules of Unicode, or of ASCII if it is not UTF-8.
std::string caseFolded(std::string_view text);

/// True if the texts are equal except for case.
bool equalIgnoringCase(std::string_view one, std::string_view other);

/// True for an ASCII letter.
bool isLetter(char c);

}  // namespace platform
