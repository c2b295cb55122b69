#pragma once

#include <string>
#include <string_view>

namespace platform {

inline constexpr unsigned utf8 = 65001;

/// The text in UTF-16, as the system's calls take it. A byte that is no UTF-8, or has no meaning in
/// the other code page that is given, becomes U+FFFD.
std::wstring wide(std::string_view text, unsigned codePage = utf8);

/// The system's text in UTF-8, or in another code page. Half a surrogate pair becomes U+FFFD, and
/// what the other code page lacks a likeness or a question mark.
std::string narrow(std::wstring_view text, unsigned codePage = utf8);

}  // namespace platform
