#pragma once

#include <string>

/// The Help pages.
namespace pages {

/// True if the pages explain the message. A variable in the pages matches any text.
bool explains(const std::string& message);

}  // namespace pages
