#include "platform/linux/launch/batch_script.h"

#include <algorithm>

#include "core/text.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/launch/command_line.h"

namespace platform {

namespace {

BatchLine parseLine(std::string_view text) {
    using Kind = BatchLine::Kind;
    const std::string line(text);
    if (core::drivePart(text) == text) return {Kind::Drive, line, ""};

    const std::size_t end = std::min(text.find_first_of(" \t\"\\"), text.size());
    const std::string command = caseFolded(text.substr(0, end));
    const std::string_view argument = trimmed(text.substr(end));
    if (command == "cd" && !argument.empty()) return {Kind::ChangeFolder, line, unquoted(argument)};
    if (command == "pause") return {Kind::Pause, line, ""};
    if (command == "exit") return {Kind::Exit, line, ""};
    return {Kind::Command, line, ""};
}

}  // namespace

std::vector<BatchLine> parseBatch(std::string_view script) {
    std::vector<BatchLine> lines;
    while (!script.empty()) {
        const std::size_t end = std::min(script.find('\n'), script.size());
        std::string_view line = script.substr(0, end);
        script.remove_prefix(std::min(end + 1, script.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        line = trimmed(line);
        if (!line.empty()) lines.push_back(parseLine(line));
    }
    return lines;
}

}  // namespace platform
