#include "platform/linux/launch/command_line.h"

#include <algorithm>

namespace platform {

namespace {

/// Removes the first word from the text and returns it with its quotes. "<" is a word of its own.
std::string_view takeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    std::size_t end = 0;
    bool inQuotes = false;
    for (; end < text.size(); ++end) {
        const char c = text[end];
        if (c == '"') inQuotes = !inQuotes;
        if (!inQuotes && (c == '<' || blanks.find(c) != std::string_view::npos)) break;
    }
    if (end == 0 && text.starts_with('<')) end = 1;
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end);
    return word;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string unquoted(std::string_view text) {
    std::string result(text);
    std::erase(result, '"');
    return result;
}

CommandLine::CommandLine(std::string_view text) {
    while (!trimmed(text).empty()) {
        const std::string_view word = takeWord(text);
        if (word == "<") {
            input = unquoted(takeWord(text));
            continue;
        }
        if (words.empty()) rest = unquoted(trimmed(text));
        words.push_back(unquoted(word));
    }
}

}  // namespace platform
