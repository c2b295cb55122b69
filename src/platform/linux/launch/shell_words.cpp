#include "platform/linux/launch/shell_words.h"

namespace platform {

std::vector<std::string> shellWords(std::string_view text) {
    constexpr std::string_view blanks = " \t\n";
    constexpr std::string_view escapedInQuotes = "$`\"\\\n";
    std::vector<std::string> words;
    char quote = '\0';
    bool inWord = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quote == '\0' && blanks.find(c) != std::string_view::npos) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        const bool quotes = quote == '\0' ? c == '\'' || c == '"' : c == quote;
        const bool escapes =
            c == '\\' && quote != '\'' && at + 1 < text.size() &&
            (quote == '\0' || escapedInQuotes.find(text[at + 1]) != std::string_view::npos);
        if (quotes) {
            quote = quote == '\0' ? c : '\0';
        } else {
            words.back() += escapes ? text[++at] : c;
        }
    }
    return words;
}

std::string shellText(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += text.empty() ? "'" : " '";
        for (const char c : word)
            text += c == '\'' ? "'\\''" : std::string(1, c);
        text += '\'';
    }
    return text;
}

std::string envArgument(const std::vector<std::string>& words) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    constexpr std::string_view special = "$\\'\"#";
    std::string text = "-S";
    for (const std::string& word : words) {
        if (text.size() > 2) text += "\\_";
        if (word.empty()) text += "''";
        for (const char c : word) {
            if (blanks.find(c) != std::string_view::npos) {
                text += {'\'', c, '\''};
            } else {
                if (special.find(c) != std::string_view::npos) text += '\\';
                text += c;
            }
        }
    }
    return text;
}

}  // namespace platform
