#pragma once

#include <string>
#include <vector>

#include "helpers.h"

/// The Help pages.
namespace pages {

inline const fs::path folder = NWBW_PAGES;

/// Returns the first group of each match of the pattern.
std::vector<std::string> all(const std::string& text, const std::string& pattern);

/// True if the pages explain the message. A variable in the pages matches any text.
bool explains(const std::string& message);

}  // namespace pages
