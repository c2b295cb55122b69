#include "platform/linux/disk/short_names.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>

#include "platform/linux/disk/case_fold.h"

namespace platform {

namespace {

constexpr std::size_t longestStem = 8;
constexpr std::size_t longestExtension = 3;
constexpr std::size_t longestBase = 6;

bool isPlain(char c) {
    constexpr std::string_view marks = "$%'-_@~`!(){}^#&";
    return isLetter(c) || (c >= '0' && c <= '9') || marks.find(c) != std::string_view::npos;
}

bool allPlain(std::string_view text) {
    return std::ranges::all_of(text, isPlain);
}

bool isShortExtension(std::string_view extension) {
    return extension.size() <= longestExtension && allPlain(extension);
}

/// Returns the text in upper case, without blanks and dots, and with "_" for any other character
/// that is not plain.
std::string shortened(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool insideCharacter = (static_cast<unsigned char>(c) & 0xc0) == 0x80;
        if (c == ' ' || c == '.' || insideCharacter) continue;
        if (c >= 'a' && c <= 'z') {
            result += static_cast<char>(c - 'a' + 'A');
        } else {
            result += isPlain(c) ? c : '_';
        }
    }
    return result;
}

std::string joined(std::string_view stem, std::string_view extension) {
    std::string name(stem);
    if (!extension.empty()) name.append(".").append(extension);
    return name;
}

/// Names that share one short stem, oldest first.
struct Group {
    std::vector<const std::string*> names;
};

struct Candidate {
    std::int64_t created;
    const std::string* name;
};

/// Groups the names by their short stems, in the order of each group's oldest name.
std::vector<Group> grouped(const std::vector<Candidate>& byAge) {
    std::vector<Group> groups;
    std::unordered_map<std::string, std::size_t> shared;  // by long stem
    std::unordered_set<std::string> members;
    for (const Candidate& candidate : byAge) {
        const NameParts parts(*candidate.name);
        // A second name that differs only in case would get the same short name.
        const bool first = members.insert(caseFolded(*candidate.name)).second;
        if (first && isShortExtension(parts.extension)) {
            const auto [place, isNew] = shared.emplace(caseFolded(parts.stem), groups.size());
            if (!isNew) {
                groups[place->second].names.push_back(candidate.name);
                continue;
            }
        }
        groups.push_back({{candidate.name}});
    }
    return groups;
}

/// Gives out numbered stems, each only once.
class StemNumbers {
  public:
    explicit StemNumbers(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            const std::string_view stem = NameParts(name).stem;
            if (stem.size() <= longestStem) taken_.insert(caseFolded(stem));
        }
    }

    std::string next(std::string_view longStem) {
        std::string base = shortened(longStem).substr(0, longestBase);
        if (base.empty()) base += '_';
        int& number = last_[base];
        std::string stem;
        do {
            const std::string ending = '~' + std::to_string(++number);
            stem = base.substr(0, longestStem - ending.size()) + ending;
        } while (!taken_.insert(caseFolded(stem)).second);
        return stem;
    }

  private:
    std::unordered_set<std::string> taken_;
    std::unordered_map<std::string, int> last_;  ///< by base
};

}  // namespace

NameParts::NameParts(std::string_view name) : stem(name) {
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == name.size()) return;
    stem = name.substr(0, dot);
    extension = name.substr(dot + 1);
}

bool isShortName(std::string_view name) {
    const NameParts parts(name);
    return parts.stem.size() <= longestStem && allPlain(parts.stem) &&
           isShortExtension(parts.extension);
}

bool endsAsShortened(std::string_view name) {
    const std::string_view stem = NameParts(name).stem;
    const std::size_t base = stem.find_last_not_of("0123456789");
    return base != std::string_view::npos && stem[base] == '~' && base + 1 < stem.size();
}

ShortNames::ShortNames(const std::vector<std::string>& names,
                       const std::function<std::int64_t(const std::string&)>& createdAt) {
    std::vector<Candidate> byAge;
    for (const std::string& name : names)
        if (!isShortName(name)) byAge.push_back({createdAt(name), &name});
    std::ranges::sort(byAge, [](const Candidate& one, const Candidate& other) {
        return std::tie(one.created, *one.name) < std::tie(other.created, *other.name);
    });

    StemNumbers numbers(names);
    for (const Group& group : grouped(byAge)) {
        const std::string_view longStem = NameParts(*group.names.front()).stem;
        const std::string stem = numbers.next(longStem);
        longStems_.emplace(caseFolded(stem), longStem);
        for (const std::string* name : group.names) {
            const std::string extension = shortened(NameParts(*name).extension);
            const std::string shortForm = joined(stem, extension.substr(0, longestExtension));
            shortForms_.emplace(*name, shortForm);
            names_.emplace(caseFolded(shortForm), *name);
        }
    }
}

const std::string& ShortNames::shortFor(const std::string& name) const {
    const auto found = shortForms_.find(name);
    return found == shortForms_.end() ? name : found->second;
}

std::string ShortNames::nameFor(std::string_view shortName) const {
    const auto found = names_.find(caseFolded(shortName));
    return found == names_.end() ? "" : found->second;
}

std::string ShortNames::withLongStem(std::string_view name) const {
    const NameParts parts(name);
    const auto found = longStems_.find(caseFolded(parts.stem));
    return found == longStems_.end() ? "" : joined(found->second, parts.extension);
}

}  // namespace platform
