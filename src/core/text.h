#pragma once

#include <string>
#include <string_view>

/// Texts are UTF-8; their lengths and positions count characters.
namespace core {

/// Number of characters.
std::size_t length(std::string_view text);

/// The first two characters if the second is ":", else nothing. The first may be any character.
std::string_view drivePart(std::string_view text);

/// What follows the last occurrence of the mark, or all of the text if there is none.
std::string_view afterLast(std::string_view text, char mark);

/// What precedes the last occurrence of the mark, or all of the text if there is none.
std::string_view beforeLast(std::string_view text, char mark);

/// The text between double quotes.
std::string quoted(std::string_view text);

/// Ends every line of a command text and of a script.
inline constexpr const char* crlf = "\r\n";

}  // namespace core
