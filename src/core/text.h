#pragma once

#include <string>
#include <string_view>

/// Strings are UTF-8; lengths count characters, not bytes.
namespace core {

/// Returns the number of characters.
std::size_t length(std::string_view text);

/// Returns the first two characters if the second is ":", otherwise an empty string. The first may
/// be any character.
std::string_view drivePart(std::string_view text);

/// Returns what follows the last occurrence of the mark, or the whole text if there is none.
std::string_view afterLast(std::string_view text, char mark);

/// Returns what precedes the last occurrence of the mark, or the whole text if there is none.
std::string_view beforeLast(std::string_view text, char mark);

/// Returns the text enclosed in double quotes.
std::string quoted(std::string_view text);

/// The line ending of command texts and scripts.
inline constexpr const char* crlf = "\r\n";

}  // namespace core
