// Short names are short, each belongs to one file, and a file keeps its own when others are added.

#include "platform/linux/disk/short_names.h"

#include <algorithm>
#include <set>
#include <string>

#include "check.h"
#include "platform/linux/disk/case_fold.h"

namespace {

using fuzz::check;
using platform::NameParts;
using Names = std::vector<std::string>;

/// The files of a folder: one name per line of the input.
Names namesIn(std::string_view input) {
    Names names;
    fuzz::forEachPiece(input, '\n', [&](std::string_view name) {
        const bool possible = !name.empty() && name != "." && name != ".." &&
                              name.find('/') == std::string_view::npos &&
                              name.find('\0') == std::string_view::npos;
        const bool known = std::ranges::find(names, name) != names.end();
        if (possible && !known && names.size() < 20) names.emplace_back(name);
    });
    return names;
}

platform::ShortNames shortNamesOf(const Names& names) {
    return {names, [&](const std::string& name) {
                return std::ranges::find(names, name) - names.begin();
            }};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    Names names = namesIn({reinterpret_cast<const char*>(data), size});
    const auto all = shortNamesOf(names);
    const auto again = shortNamesOf(names);
    std::set<std::string> seen;
    for (const std::string& name : names) {
        const std::string shortName = platform::isShortName(name) ? name : all.shortFor(name);
        const NameParts parts(shortName);
        check(platform::isShortName(shortName), "a short name is short");
        check(!parts.stem.empty() && parts.stem.size() <= 8 && parts.extension.size() <= 3, "8.3");
        if (shortName == name) continue;
        check(seen.insert(platform::caseFolded(shortName)).second, "no two files share one");
        check(std::ranges::find(names, shortName) == names.end(), "nor has a third it");
        check(all.nameFor(shortName) == name, "it leads back to its file");
        check(again.shortFor(name) == shortName, "it is the same at each call");
        const std::string sibling = all.withLongStem(std::string(parts.stem) + ".new");
        check(platform::equalIgnoringCase(NameParts(sibling).stem, NameParts(name).stem),
              "its stem stands for the long one");
    }
    // A new name that looks like a short one may take over a stem; any other changes none.
    if (names.empty() || NameParts(names.back()).stem.size() <= 8) return 0;
    names.pop_back();
    const auto before = shortNamesOf(names);
    for (const std::string& name : names)
        check(before.shortFor(name) == all.shortFor(name), "a new file takes no name away");
    return 0;
}
