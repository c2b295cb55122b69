#pragma once

#include <string>

namespace pages {

/// True if the message is one of those that the documentation explains, whatever stands in it where
/// the documentation has a variable.
bool explains(const std::string& message);

}  // namespace pages
