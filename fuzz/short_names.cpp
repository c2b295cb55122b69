// Short names are short, each means one file or none, also after other files have come or gone, and
// depends on the stems in its folder only.

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

/// The names in reverse order and with another extension.
Names otherwise(const Names& names) {
    Names others;
    for (const std::string& name : names)
        others.insert(others.begin(), std::string(NameParts(name).stem) + ".other");
    return others;
}

/// Expects that a short name that a file had in one state of its folder means no other file in
/// another state.
void checkLater(const Names& names, const platform::ShortNames& one,
                const platform::ShortNames& other) {
    for (const std::string& name : names) {
        const std::string shortName = one.shortFor(name);
        const std::string longName = other.longFor(shortName);
        check(longName == name || longName == shortName, "a short name never means another file");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const Names names = namesIn({reinterpret_cast<const char*>(data), size});
    const platform::ShortNames all(names);
    const platform::ShortNames others(otherwise(names));
    for (std::size_t gone = 1; gone < names.size(); ++gone) {
        const Names left(names.begin() + static_cast<std::ptrdiff_t>(gone), names.end());
        const platform::ShortNames rest(left);
        checkLater(left, all, rest);
        checkLater(left, rest, all);
    }
    std::set<std::string> seen;
    for (const std::string& name : names) {
        const std::string shortName = all.shortFor(name);
        const NameParts parts(shortName);
        check(platform::isShortName(shortName), "a short name is short");
        check(!parts.stem.empty() && parts.stem.size() <= 8 && parts.extension.size() <= 3, "8.3");
        check(!shortName.starts_with('-') && !shortName.starts_with('+'), "it is no option");
        check(platform::fitsWindows(shortName), "it fits a Windows path");
        if (shortName == name) continue;
        const bool isFirst = seen.insert(shortName).second;
        check(std::ranges::none_of(names,
                                   [&](const std::string& other) {
                                       return platform::equalIgnoringCase(other, shortName);
                                   }),
              "no name on the disk is it");
        const std::string longName = all.longFor(shortName);
        check(longName == (isFirst ? name : shortName) || longName == shortName,
              "it leads back to its file or nowhere");
        check(platform::fitsWindows(name) || parts.stem.substr(1, 1) == "~", "it has a digest");
        const std::string sibling = all.longFor(std::string(parts.stem) + ".new");
        const bool isShort = sibling.starts_with(std::string(parts.stem));
        check(NameParts(sibling).stem == NameParts(name).stem || isShort,
              "its stem stands for the long one");
        const std::string_view stem = NameParts(name).stem;
        if (!platform::fitsWindows(name) || !NameParts(std::string(stem) + ".other").stem.size())
            continue;
        const std::string other = others.shortFor(std::string(stem) + ".other");
        check(NameParts(other).stem == parts.stem, "it depends on the stems only");
    }
    return 0;
}
