#include "pages.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

TEST(Pages, EveryLinkResolves) {
    std::set<std::string> targets;
    std::map<std::string, std::string> texts;
    for (const auto& file : fs::recursive_directory_iterator(pages::folder)) {
        if (!file.is_regular_file()) continue;
        const std::string page = fs::relative(file, pages::folder).generic_string();
        targets.insert(page);
        texts[page] = contentOf(file);
        for (const std::string& id : pages::all(texts[page], "\\sid=\"([^\"]*)\""))
            targets.insert(page + '#' + id);
    }
    int links = 0;
    for (const auto& [page, text] : texts) {
        for (const std::string& link : pages::all(text, "\\s(?:href|src)=\"([^\"]*)\"")) {
            ++links;
            EXPECT_TRUE(targets.contains(link[0] == '#' ? page + link : link))
                << page << ' ' << link;
        }
    }
    EXPECT_GT(links, 50);
}

}  // namespace
