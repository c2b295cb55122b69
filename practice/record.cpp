#include "record.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace practice {

namespace {

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return text;
}

std::string line(std::string_view word, std::string_view text) {
    return std::string(word) + ' ' + std::string(text) + '\n';
}

}  // namespace

Record::Record(int argumentCount, const char* const* arguments)
    : arguments_(arguments + 1, arguments + argumentCount) {
    const std::filesystem::path program(arguments[0]);
    name_ = lowerCase(program.filename().string());
    if (name_.ends_with(".exe")) name_.resize(name_.size() - 4);
    file_ = std::filesystem::absolute(program).parent_path() / (name_ + ".record");

    std::string call = line("run", name_);
    call += line("folder", std::filesystem::current_path().string());
    for (const std::string& argument : arguments_)
        call += line("argument", argument);
    add(call);
}

void Record::addInput(std::string_view text) const {
    add(line("input", text));
}

void Record::add(std::string_view text) const {
    std::ofstream(file_, std::ios::app) << text;
}

}  // namespace practice
