#pragma once

#include <string>
#include <vector>

#include "platform/linux/launch/invocation.h"

namespace platform {

/// Returns the user's terminal, ready to run the words in it, in a maximised window if it supports
/// that. Throws RuntimeError if no terminal is found.
Invocation inTerminal(const std::vector<std::string>& words, bool maximised);

}  // namespace platform
