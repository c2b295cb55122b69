#pragma once

#include <string>
#include <vector>

#include "platform/posix/invocation.h"

namespace platform {

/// The user's terminal, ready to run the words in it, in a maximised window where it knows how.
/// Throws RuntimeError if no terminal is found.
Invocation inTerminal(const std::vector<std::string>& words, bool maximised);

}  // namespace platform
