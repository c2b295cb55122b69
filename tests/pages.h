#pragma once

#include <string>
#include <vector>

#include "helpers.h"

/// The pages of the documentation.
namespace pages {

inline const fs::path folder = NWBW_PAGES;

/// All first groups of the pattern in the text.
std::vector<std::string> all(const std::string& text, const std::string& pattern);

/// True if the message is one of those that the documentation explains, whatever stands in it where
/// the documentation has a variable.
bool explains(const std::string& message);

}  // namespace pages
