#include "platform/linux/argument_map.h"

#include "core/text.h"
#include "platform/linux/case_fold.h"

namespace platform {

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

bool isOption(std::string_view word) {
    return word.starts_with('-');
}

}  // namespace

void ArgumentMap::toHost(std::vector<std::string>& arguments) {
    map(arguments, Target::Host);
}

void ArgumentMap::toLongNames(std::vector<std::string>& arguments) {
    map(arguments, Target::Windows);
}

void ArgumentMap::map(std::vector<std::string>& arguments, Target target) {
    bool behindOption = false;
    for (std::string& argument : arguments) {
        const bool nowOption = isOption(argument);
        argument = nowOption ? option(argument, target) : word(argument, target, behindOption);
        behindOption = nowOption;
    }
}

std::string ArgumentMap::path(const std::string& path, Target target) {
    if (target == Target::Windows) return disk_.longPath(path);
    const std::string host = disk_.toHost(path);
    return host.empty() ? path : host;
}

std::string ArgumentMap::name(const std::string& name, Target target) {
    return target == Target::Windows ? disk_.longPath(name) : disk_.nameHere(name);
}

std::string ArgumentMap::word(const std::string& word, Target target, bool mayBeValue) {
    if (isPath(word)) return path(word, target);
    if (has(word, '/')) return word;
    // Only a short name is unmistakable: what stands behind an option may be a value of it that
    // happens to be some file's name too, and Windows programs heed no case themselves.
    const bool unmistakable = has(word, '~');
    if (!unmistakable && (mayBeValue || target == Target::Windows)) return word;
    return name(word, target);
}

bool ArgumentMap::isJoinedPath(std::string_view text) {
    if (hasDrive(text)) return text.substr(2).starts_with('\\');
    if (has(text, '/')) return false;
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
