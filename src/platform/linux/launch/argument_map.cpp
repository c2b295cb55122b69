#include "platform/linux/launch/argument_map.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "core/text.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/disk/short_names.h"
#include "platform/linux/launch/invocation.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

bool hasDrive(std::string_view word) {
    return word.size() >= 2 && isLetter(word[0]) && word[1] == ':';
}

bool has(std::string_view word, char c) {
    return word.find(c) != std::string_view::npos;
}

bool isPath(std::string_view word) {
    return hasDrive(word) || has(word, '\\') || (word.starts_with('/') && has(word, '~'));
}

/// True for what many tools take for an option.
bool isOption(std::string_view word) {
    return word.starts_with('-') || word.starts_with('+');
}

/// True for an option that the panels give to a tool.
bool isPanelsOption(std::string_view word) {
    constexpr auto options = std::to_array<std::string_view>(
        {"-Include", "-Pack", "-Debug", "-Full", "-CharSet", "-List", "-Height",
         "-d",       "-t",    "-s",     "-L",    "-OO",      "-FF",   "-FD",
         "-FR",      "-PC",   "-PQ",    "-PD",   "-PR",      "-NL"});
    return std::ranges::find(options, word) != options.end() || word.starts_with("-OF");
}

/// True if the word is the name of a file in the current folder, or has the stem of one.
bool namesFileHere(std::string_view word) {
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(".", failed)) {
        const std::string name = entry.path().filename();
        const std::string_view stem = NameParts(name).stem;
        if (equalIgnoringCase(stem, word) || equalIgnoringCase(stem, NameParts(word).stem))
            return true;
    }
    return false;
}

}  // namespace

void ArgumentMap::toHost(std::vector<std::string>& arguments) {
    map(arguments, Target::Host);
}

void ArgumentMap::toLongNames(std::vector<std::string>& arguments) {
    map(arguments, Target::Windows);
}

void ArgumentMap::map(std::vector<std::string>& arguments, Target target) {
    bool afterOption = false;
    for (std::string& argument : arguments) {
        const bool isFile =
            isOption(argument) && !isPanelsOption(argument) && namesFileHere(argument);
        const bool nowOption = isOption(argument) && !isFile;
        argument = nowOption ? option(argument, target)
                   : isFile  ? name(argument, target)
                             : word(argument, target, afterOption);
        afterOption = nowOption;
    }
}

std::string ArgumentMap::path(const std::string& path, Target target) {
    if (target == Target::Windows) return disk_.longPath(path);
    const auto host = disk_.toHost(path);
    if (!host) refuseToStart(program_ + ' ' + path, "there is no such place.");
    return host->text();
}

/// Translates only a path whose folder exists: the file itself may be new, or named without its
/// extension. A word without a further slash, like the option "/d", must exist itself.
std::string ArgumentMap::rooted(const std::string& word) {
    std::error_code failed;
    if (fs::exists(fs::symlink_status(word, failed))) return word;
    const auto host = disk_.toHost('\\' + word.substr(1));
    if (!host) return word;
    const bool hasFolder = word.find('/', 1) != std::string::npos;
    const HostPath place = hasFolder ? host->parent() : *host;
    return fs::exists(place.text(), failed) ? host->text() : word;
}

std::string ArgumentMap::name(const std::string& name, Target target) {
    const bool forWindows = target == Target::Windows;
    std::string known = forWindows ? disk_.longPath(name) : disk_.nameHere(name);
    if (!isOption(known)) return known;
    return (forWindows ? ".\\" : "./") + known;
}

std::string ArgumentMap::word(const std::string& word, Target target, bool mayBeValue) {
    if (target == Target::Host && word.starts_with('/')) return rooted(word);
    if (isPath(word)) return path(word, target);
    if (has(word, '/')) return word;
    // Only a short name is unambiguous. A word after an option may be its value and match a file by
    // chance, and Windows programs ignore case themselves.
    const bool unambiguous = has(word, '~');
    if (!unambiguous && (mayBeValue || target == Target::Windows)) return word;
    return name(word, target);
}

bool ArgumentMap::isJoinedPath(std::string_view text) {
    if (hasDrive(text)) return text.substr(2).starts_with('\\');
    if (has(text, '/')) return false;
    if (text.starts_with("\\\\")) return true;  // to be refused: on no known drive
    if (!has(text, '\\')) return has(text, '~') && disk_.nameHere(text) != text;
    return !disk_.shortPath(text.substr(0, text.rfind('\\') + 1)).empty();
}

std::string ArgumentMap::option(const std::string& word, Target target) {
    for (std::size_t at = 2; at < word.size() && isLetter(word[at - 1]); ++at) {
        const std::string joined = word.substr(at);
        if (!isJoinedPath(joined)) continue;
        const bool bare = !hasDrive(joined) && !has(joined, '\\');
        return word.substr(0, at) + (bare ? name(joined, target) : path(joined, target));
    }
    return word;
}

}  // namespace platform
