#pragma once

#include <string>
#include <string_view>

namespace platform {

inline constexpr unsigned utf8 = 65001;

/// Returns UTF-8 text, or text in another code page, in UTF-16. An invalid byte becomes U+FFFD.
std::wstring wide(std::string_view text, unsigned codePage = utf8);

/// Returns UTF-16 text in UTF-8 or another code page. Half a surrogate pair becomes U+FFFD, and a
/// character that the code page lacks becomes a similar one or a question mark.
std::string narrow(std::wstring_view text, unsigned codePage = utf8);

}  // namespace platform
