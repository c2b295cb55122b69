#include "platform/linux/launch/batch_interpreter.h"

#include <unistd.h>

#include <QString>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <istream>
#include <system_error>

#include "core/runtime.h"
#include "core/text.h"
#include "platform/linux/disk/case_fold.h"

namespace platform {

namespace {

/// Replaces control characters, so that a name cannot send commands to the terminal.
std::string printable(const std::string& text) {
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    QString result = QString::fromStdString(text);
    std::ranges::replace_if(result, isControl, QChar('?'));
    return result.toStdString();
}

[[noreturn]] void refuse(const std::string& step, const std::string& reason) {
    throw core::RuntimeError(step + ": " + reason +
                             ". The script ends here, so that nothing runs in a wrong folder.");
}

[[noreturn]] void refuseFolder(const std::string& folder, const std::string& reason) {
    refuse("Cannot change to " + folder, reason);
}

[[noreturn]] void refuseInput(const std::string& file, const std::string& reason) {
    throw core::RuntimeError("The command was not run: cannot read " + file + ": " + reason + '.');
}

void enter(const std::optional<HostPath>& folder, const std::string& name) {
    if (!folder) refuseFolder(name, "No such drive");
    if (chdir(folder->c_str()) != 0) refuseFolder(name, std::strerror(errno));
}

}  // namespace

bool BatchInterpreter::run(std::string_view script) {
    for (const BatchLine& line : parseBatch(script)) {
        echo(line.text);
        try {
            if (execute(line) == Next::Stop) break;
        } catch (const core::RuntimeError& error) {
            report(error.what());
            break;
        }
    }
    if (!lastFailure_.empty()) report(lastFailure_);
    return !failed_;
}

BatchInterpreter::Next BatchInterpreter::execute(const BatchLine& line) {
    std::string answer;
    switch (line.kind) {
        case BatchLine::Kind::Drive:
            changeDrive(line.text);
            return Next::Continue;
        case BatchLine::Kind::ChangeFolder:
            changeFolder(line.folder);
            return Next::Continue;
        case BatchLine::Kind::Pause:
            out_ << "Press Enter to continue . . . " << std::flush;
            std::getline(in_, answer);
            failed_ = false;  // the user has read the errors
            lastFailure_.clear();
            return Next::Continue;
        case BatchLine::Kind::Exit:
            return Next::Stop;
        case BatchLine::Kind::Command:
            return runCommand(line.text);
        case BatchLine::Kind::Unknown:
            refuse("Cannot run " + line.text,
                   "only a program that is given with its folder can be started");
    }
    return Next::Stop;
}

std::string BatchInterpreter::currentDrive() {
    const auto place = disk_.drives().placeOf(currentFolder());
    return place ? place->drive : "";
}

void BatchInterpreter::changeDrive(const std::string& drive) {
    const std::string now = currentDrive();
    if (equalIgnoringCase(now, drive)) return;
    const auto left = folders_.find(caseFolded(drive));
    const HostPath leaving = currentFolder();
    enter(left == folders_.end() ? disk_.toHost(drive + '\\') : left->second, drive);
    folders_.insert_or_assign(caseFolded(now), leaving);
}

void BatchInterpreter::changeFolder(const std::string& path) {
    const auto host = disk_.toHost(path);
    const std::string drive = caseFolded(core::drivePart(path));
    if (drive.empty() || drive == currentDrive()) return enter(host, path);
    // On another drive, it takes effect when a later line changes to that drive.
    std::error_code failed;
    if (!host || !std::filesystem::is_directory(host->text(), failed))
        refuseFolder(path, "No such folder");
    folders_.insert_or_assign(drive, *host);
}

std::string BatchInterpreter::inputFile(const CommandLine& command) {
    if (!command.input) return "";
    if (command.input->empty()) {
        throw core::RuntimeError("The command was not run: no file is named after \"<\".");
    }
    const auto file = disk_.toHost(*command.input);
    if (!file) refuseInput(*command.input, "No such drive");
    if (access(file->c_str(), R_OK) != 0) refuseInput(*command.input, std::strerror(errno));
    std::error_code failed;
    if (!std::filesystem::is_regular_file(file->text(), failed))
        refuseInput(*command.input, "It is not an ordinary file");
    return file->text();
}

BatchInterpreter::Next BatchInterpreter::runCommand(const std::string& text) {
    const CommandLine command(text);
    try {
        const Invocation invocation = launcher_.prepare(command);
        const std::string input = inputFile(command);
        showTitle(command);
        const Ending ending = runToEnd(invocation, input);
        lastFailure_ = ending.isGood() ? "" : command.words.front() + ' ' + ending.text() + '.';
        if (ending.signal != SIGINT) return Next::Continue;
        lastFailure_.clear();
    } catch (const core::RuntimeError& error) {
        report(error.what());
        return Next::Continue;
    }
    report("Interrupted.");
    return Next::Stop;
}

void BatchInterpreter::echo(const std::string& line) {
    std::string folder = disk_.toWindows(currentFolder());
    if (!folder.empty() && isLetter(folder.front())) folder.front() &= ~0x20;  // upper case
    out_ << '\n' << printable(folder) << '>' << printable(line) << std::endl;
}

void BatchInterpreter::showTitle(const CommandLine& command) {
    if (titles_ == Titles::No) return;
    std::string title(core::afterLast(command.words.front(), '\\'));
    for (std::size_t i = 1; i < command.words.size(); ++i)
        title += ' ' + command.words[i];
    title = printable(title) + " - Norvane Workbench";
    // Konsole reads only the second sequence.
    out_ << "\x1b]2;" << title << "\a\x1b]30;" << title << '\a' << std::flush;
}

void BatchInterpreter::report(const std::string& message) {
    failed_ = true;
    out_ << printable(message) << std::endl;
}

}  // namespace platform
