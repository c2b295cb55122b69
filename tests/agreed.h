#pragma once

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <sstream>

#include "helpers.h"

namespace fakes {

/// Expects the lines of a file of the tests. Leaves others in the current folder, to compare or to
/// agree on.
inline void expectAgreed(const std::string& file, const std::string& found) {
    const std::string wanted = contentOf(fs::path(NWBW_TESTS) / file);
    if (found != wanted) std::ofstream(file, std::ios::binary) << found;
    std::istringstream lines(found), agreed(wanted);
    for (std::string line, expected; std::getline(lines, line) || agreed;) {
        std::getline(agreed, expected);
        ASSERT_EQ(std::exchange(line, ""), std::exchange(expected, ""));
    }
}

/// Returns the line with what its braces stand for: the places of these names, and bytes in
/// hexadecimal.
inline std::string filled(std::string line, const std::map<std::string, std::string>& places = {}) {
    static const std::regex braces(R"(\{(\w+)\})");
    for (std::smatch found; std::regex_search(line, found, braces);) {
        const auto place = places.find(found[1]);
        line.replace(found.position(), found.length(),
                     place != places.end() ? place->second
                                           : std::string(1, std::stoi(found[1], nullptr, 16)));
    }
    return line;
}

/// A line to act on: a verb, what it acts on, and a value after " = ".
struct Act {
    std::string verb, name, value;
};

inline Act actOf(const std::string& line) {
    static const std::regex parts(R"((\w+) ?([\s\S]*?)(?: = ?([\s\S]*))?)");
    std::smatch part;
    std::regex_match(line, part, parts);
    return {part[1], part[2], part[3]};
}

/// Returns the lines of the text, each after "|".
inline std::string marked(std::string text) {
    std::erase(text, '\r');
    text = std::regex_replace(text, std::regex("(.*\n)"), "| $1");
    return std::regex_replace(text, std::regex(" +\n"), "\n");
}

}  // namespace fakes
