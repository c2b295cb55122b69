#include "core/text.h"

#include <algorithm>

namespace core {

static bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
}

std::size_t length(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, startsCharacter));
}

std::string_view drivePart(std::string_view text) {
    if (text.empty()) return {};
    const auto second = std::find_if(text.begin() + 1, text.end(), startsCharacter);
    if (second == text.end() || *second != ':') return {};
    return {text.begin(), second + 1};
}

std::string_view afterLast(std::string_view text, char mark) {
    const auto at = text.rfind(mark);
    return at == std::string_view::npos ? text : text.substr(at + 1);
}

std::string_view beforeLast(std::string_view text, char mark) {
    return text.substr(0, text.rfind(mark));
}

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

}  // namespace core
