#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

inline constexpr unsigned utf8 = 65001;

/// Returns UTF-8 text, or text in another code page, in UTF-16. An invalid byte becomes U+FFFD.
std::wstring wide(std::string_view text, unsigned codePage = utf8);

/// Returns UTF-16 text in UTF-8 or another code page. Half a surrogate pair becomes U+FFFD, and a
/// character that the code page lacks becomes a similar one or a question mark.
std::string narrow(std::wstring_view text, unsigned codePage = utf8);

/// Returns UTF-8 text in another code page, or nullopt if the code page lacks a character.
std::optional<std::string> inCodePage(const std::string& text, unsigned codePage);

/// Returns, in UTF-8, the text that `call(buffer, size)` writes. The call returns the text's
/// length, or at least `size` if it does not fit.
template <typename Call>
std::string textFrom(const Call& call) {
    std::wstring buffer(260, L'\0');
    for (;;) {
        const auto size = static_cast<unsigned long>(buffer.size());
        const unsigned long length = call(buffer.data(), size);
        if (length < size) return narrow({buffer.data(), length});
        buffer.resize(buffer.size() * 2);
    }
}

}  // namespace platform
