#include "pages.h"

#include <algorithm>
#include <regex>

#include "helpers.h"

namespace pages {

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
        const std::string page = contentOf(fs::path(NWBW_PAGES) / "default.htm");
        const std::regex entry("<dt class=\"message\"[^>]*>(.*?)</dt>\\s*<dd>");
        for (std::sregex_iterator found(page.begin(), page.end(), entry), end; found != end;
             ++found) {
            std::string text = (*found)[1];
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
