#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The words of a command as a shell parts them: at blanks, with single quotes, double quotes and
/// backslashes. Nothing is expanded.
std::vector<std::string> shellWords(std::string_view text);

/// One text that a shell parts into just these words.
std::string shellText(const std::vector<std::string>& words);

/// One argument without blanks that starts the words behind "env".
std::string envArgument(const std::vector<std::string>& words);

}  // namespace platform
