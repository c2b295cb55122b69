#include "pages.h"

#include <algorithm>
#include <regex>

namespace pages {

std::vector<std::string> all(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match)
        found.push_back((*match)[1]);
    return found;
}

bool explains(const std::string& message) {
    static const auto messages = [] {
        // Turns each message into a regular expression that matches any text for a variable.
        const std::pair<const char*, const char*> steps[] = {{R"([.()?*+\[\]\\{}|^$])", R"(\$&)"},
                                                             {"<br>", "\r\n"},
                                                             {"<var>[^<]*</var>", ".*"},
                                                             {"&quot;", "\""},
                                                             {"&lt;", "<"},
                                                             {"&amp;", "&"}};
        std::vector<std::regex> expressions;
        for (std::string text : all(contentOf(folder / "default.htm"),
                                    "<dt class=\"message\"[^>]*>(.*?)</dt>\\s*<dd>")) {
            for (const auto& [html, written] : steps)
                text = std::regex_replace(text, std::regex(html), written);
            expressions.emplace_back(text);
        }
        return expressions;
    }();
    return std::ranges::any_of(
        messages, [&](const auto& expression) { return std::regex_match(message, expression); });
}

}  // namespace pages
