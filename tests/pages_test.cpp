#include "pages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;

namespace {

const fs::path folder = NWBW_PAGES;

std::string contents(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// All first groups of the pattern in the text.
std::vector<std::string> all(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match) {
        found.push_back((*match)[1]);
    }
    return found;
}

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

bool pages::explains(const std::string& message) {
    static const auto messages = [] {
        std::vector<std::vector<std::string>> parts;
        for (const std::string& text :
             all(contents(folder / "default.htm"), "<dt class=\"message\">(.*?)</dt>\\s*<dd>")) {
            parts.push_back(fixedParts(text));
        }
        return parts;
    }();
    return std::any_of(messages.begin(), messages.end(),
                       [&](const auto& parts) { return fits(message, parts); });
}

namespace {

TEST(Pages, EveryLinkResolves) {
    std::map<std::string, std::set<std::string>> anchors;
    for (const auto& file : fs::directory_iterator(folder)) {
        const auto ids = all(contents(file), "\\sid=\"([^\"]*)\"");
        anchors[file.path().filename().string()] = {ids.begin(), ids.end()};
    }
    int links = 0;
    for (const auto& [page, ids] : anchors) {
        for (const std::string& link :
             all(contents(folder / page), "\\s(?:href|src)=\"([^\"]*)\"")) {
            ++links;
            const auto mark = link.find('#');
            const std::string target = mark == 0 ? page : link.substr(0, mark);
            EXPECT_TRUE(fs::exists(folder / target)) << page << " to " << link;
            if (mark == std::string::npos) continue;
            EXPECT_TRUE(anchors[target].contains(link.substr(mark + 1))) << page << " to " << link;
        }
    }
    EXPECT_GT(links, 50);
    for (const char* page : {"GettingStarted.htm", "default.htm", "examples.htm", "credits.htm",
                             "UsingStd-iLibraryContents.htm", "SettingUpPFEContents.htm"}) {
        EXPECT_TRUE(anchors.contains(page)) << page;
    }
}

TEST(Pages, AMessageIsExplainedToTheLetterOrNotAtAll) {
    EXPECT_TRUE(pages::explains("Kelm game file \"cave.kcd\" not found"));
    EXPECT_FALSE(pages::explains("Kelm game file \"cave.kcd\" not found."));
}

}  // namespace
