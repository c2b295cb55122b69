#include "pages.h"

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>

namespace pages {

std::vector<std::string> all(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match)
        found.push_back((*match)[1]);
    return found;
}

namespace {

/// The texts between the variables of a message, as the program writes them.
std::vector<std::string> fixedParts(std::string message) {
    for (const auto& [html, text] : std::map<std::string, std::string>{
             {"<br>", "\r\n"}, {"&quot;", "\""}, {"&lt;", "<"}, {"&amp;", "&"}}) {
        for (auto at = message.find(html); at != std::string::npos; at = message.find(html)) {
            message.replace(at, html.size(), text);
        }
    }
    message = std::regex_replace(message, std::regex("<var>[^<]*</var>"), "\x01");
    std::vector<std::string> parts;
    std::istringstream stream(message + "\x01");
    for (std::string part; std::getline(stream, part, '\x01');)
        parts.push_back(part);
    return parts;
}

bool fits(const std::string& message, const std::vector<std::string>& parts) {
    if (!message.starts_with(parts.front()) || !message.ends_with(parts.back())) return false;
    std::size_t at = 0;
    for (const std::string& part : parts) {
        at = message.find(part, at);
        if (at == std::string::npos) return false;
        at += part.size();
    }
    return parts.size() > 1 || message == parts.front();
}

}  // namespace

bool explains(const std::string& message) {
    static const auto messages = [] {
        std::vector<std::vector<std::string>> parts;
        for (const std::string& text :
             all(contentOf(folder / "default.htm"), "<dt class=\"message\">(.*?)</dt>\\s*<dd>"))
            parts.push_back(fixedParts(text));
        return parts;
    }();
    return std::any_of(messages.begin(), messages.end(),
                       [&](const auto& parts) { return fits(message, parts); });
}

}  // namespace pages
