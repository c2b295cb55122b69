#include "platform/linux/launch/batch_script.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/common_runtime.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/launch/command_line.h"
#include "platform/linux/launch/invocation.h"

namespace platform {

namespace {

bool isDrive(std::string_view text) {
    return text.size() == 2 && isLetter(text[0]) && text[1] == ':';
}

/// A bare name does not count: a game's folder must not provide programs.
bool namesFolder(std::string_view path) {
    return path.find_first_of("\\/") != std::string_view::npos;
}

bool isCommand(std::string_view text) {
    if (!text.starts_with('"')) {
        return equalIgnoringCase(text.substr(0, text.find_first_of(blanks)), "notepad");
    }
    text.remove_prefix(1);
    const std::size_t quote = text.find('"');
    if (quote == std::string_view::npos) return false;
    const std::string_view next = text.substr(quote + 1, 1);
    return namesFolder(text.substr(0, quote)) && trimmed(next).empty();
}

BatchLine parseLine(std::string_view text) {
    using Kind = BatchLine::Kind;
    const std::string line(text);
    if (isDrive(text)) return {Kind::Drive, line, ""};
    if (equalIgnoringCase(text, "pause")) return {Kind::Pause, line, ""};
    if (equalIgnoringCase(text, "exit")) return {Kind::Exit, line, ""};
    if (isCommand(text)) return {Kind::Command, line, ""};

    const std::size_t end = std::min(text.find_first_of(" \t\"\\"), text.size());
    const std::string_view argument = trimmed(text.substr(end));
    if (equalIgnoringCase(text.substr(0, end), "cd") && !argument.empty())
        return {Kind::ChangeFolder, line, unquoted(argument)};
    return {Kind::Unknown, line, ""};
}

}  // namespace

std::string readBatch(const HostPath& file) {
    const auto fail = [&](const std::string& reason) {
        core::failTo("start", file.text(), reason);
    };
    const int handle = open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) fail(std::strerror(errno));
    QFile script;
    if (!script.open(handle, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        fail(script.errorString().toStdString());
    struct stat state = {};
    if (fstat(handle, &state) != 0 || state.st_uid != geteuid() ||
        (state.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
        refuseToStart(file.text(), "another user may have changed it");
    }
    std::string text = script.readAll().toStdString();
    if (script.error() != QFileDevice::NoError) fail(script.errorString().toStdString());
    return text;
}

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
