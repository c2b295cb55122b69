#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The text with all differences of case taken out, for any script that knows them.
std::string caseFolded(std::string_view text);

/// True if the two texts differ at most in case.
bool sameButForCase(std::string_view one, std::string_view other);

/// True for a letter from a to z in either case.
bool isLetter(char c);

}  // namespace platform
