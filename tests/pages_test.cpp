#include "pages.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

TEST(Pages, EveryLinkResolves) {
    std::map<std::string, std::set<std::string>> anchors;
    for (const auto& file : fs::directory_iterator(pages::folder)) {
        if (!file.is_regular_file()) continue;
        const auto ids = pages::all(contentOf(file), "\\sid=\"([^\"]*)\"");
        anchors[file.path().filename().string()] = {ids.begin(), ids.end()};
    }
    int links = 0;
    for (const auto& [page, ids] : anchors) {
        for (const std::string& link :
             pages::all(contentOf(pages::folder / page), "\\s(?:href|src)=\"([^\"]*)\"")) {
            ++links;
            const auto mark = link.find('#');
            const std::string target = mark == 0 ? page : link.substr(0, mark);
            EXPECT_TRUE(fs::exists(pages::folder / target)) << page << " to " << link;
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
