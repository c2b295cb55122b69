#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The text in UTF-16, as the system's calls take it. A byte that is no UTF-8 becomes U+FFFD.
std::wstring wide(std::string_view text);

/// The system's text in UTF-8. Half a surrogate pair becomes U+FFFD.
std::string narrow(std::wstring_view text);

}  // namespace platform
