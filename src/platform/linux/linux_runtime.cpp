#include "platform/linux/linux_runtime.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "core/text.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/launch/batch_script.h"
#include "platform/linux/launch/terminal.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& doing, const std::string& path) {
    core::failTo(doing, path, std::strerror(errno));
}

/// Throws if the file system cannot tell.
bool isOrdinaryFile(const HostPath& host, const std::string& path) {
    struct stat state = {};
    if (stat(host.c_str(), &state) == 0) return S_ISREG(state.st_mode);
    if (!tellsOfNoFile(errno)) fail("look up", path);
    return false;
}

/// True if the path can only name a folder, by how it ends.
bool endsAsFolder(const std::string& path) {
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    return name.empty() || name == ".";
}

}  // namespace

LinuxRuntime::LinuxRuntime(MessageBox messageBox, const HostPath& programFolder)
    : CommonRuntime(std::move(messageBox)),
      programFolder_(programFolder),
      appPath_(disk_.toWindows(programFolder)) {
    if (appPath_.ends_with('\\')) appPath_.pop_back();
}

std::string LinuxRuntime::TempPath() {
    const HostPath folder = userFolder("XDG_CACHE_HOME", ".cache") / "nwbw";
    std::error_code failed;
    fs::create_directories(folder.text(), failed);
    return disk_.toWindows(folder);
}

std::string LinuxRuntime::rtcDir(const std::string& path) {
    if (path.find_first_of("*?") != std::string::npos) return "";
    const auto host = disk_.toHost(path);
    if (!host || endsAsFolder(path) || !isOrdinaryFile(*host, path)) return "";
    return std::string(host->name().starts_with('.') ? "" : host->name());
}

HostPath LinuxRuntime::hostPath(const std::string& doing, const std::string& path) {
    const auto host = disk_.toHost(path);
    if (!host) core::failTo(doing, path, "No such drive");
    return *host;
}

std::chrono::system_clock::time_point LinuxRuntime::rtcFileDateTime(const std::string& path) {
    struct stat state = {};
    if (stat(hostPath("find", path).c_str(), &state) != 0) fail("find", path);
    const auto changed = std::chrono::seconds(state.st_mtim.tv_sec) +
                         std::chrono::nanoseconds(state.st_mtim.tv_nsec);
    return std::chrono::system_clock::time_point(changed);
}

void LinuxRuntime::openOutput(const std::string& path) {
    const auto create = [](const HostPath& file) {
        return open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    };
    if (writing_ != outputFile_) unlink(writing_.c_str());  // was given no name of its own
    writing_ = outputFile_;
    const HostPath host = hostPath("open", path);
    HostPath fresh = host;
    int handle = create(fresh);
    if (handle < 0 && errno == EEXIST) {
        fresh = HostPath(host.text() + '.' + std::to_string(getpid()));
        unlink(fresh.c_str());  // left by another run
        handle = create(fresh);
    }
    if (handle < 0) fail("open", path);
    if (!output_.open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        core::failTo("open", path, output_.errorString().toStdString());
    outputFile_ = host;
    writing_ = fresh;
}

std::string LinuxRuntime::readFile(const std::string& path) {
    QFile file(QFile::decodeName(hostPath("open", path).c_str()));
    if (!file.open(QIODevice::ReadOnly))
        core::failTo("open", path, file.errorString().toStdString());
    std::string text = file.readAll().toStdString();
    if (file.error() != QFileDevice::NoError) {
        core::failTo("read", path, file.errorString().toStdString());
    }
    return text;
}

void LinuxRuntime::failToWrite() {
    // A short write without an error means that the disk is full.
    const bool hasError = output_.error() != QFileDevice::NoError;
    failToWrite(hasError ? output_.errorString().toStdString() : std::strerror(ENOSPC));
}

void LinuxRuntime::failToWrite(const std::string& reason) {
    output_.close();
    unlink(writing_.c_str());
    writing_ = outputFile_;
    core::failTo("write", outputPath(), reason);
}

void LinuxRuntime::writeOut() {
    if (!output_.flush()) failToWrite();
}

void LinuxRuntime::closeOutput() {
    if (!output_.isOpen()) return;
    writeOut();
    output_.close();
    // Some file systems report a full disk only when the file is closed.
    if (output_.error() != QFileDevice::NoError) failToWrite();
    if (writing_ == outputFile_) return;
    if (std::rename(writing_.c_str(), outputFile_.c_str()) == 0) {
        writing_ = outputFile_;
    } else if (errno != EPERM) {  // another user's file in a sticky folder cannot be replaced
        failToWrite(std::strerror(errno));
    }
}

HostPath LinuxRuntime::writtenPath(const std::string& doing, const std::string& path) {
    const bool isElsewhere = writing_ != outputFile_ && path == outputPath();
    return isElsewhere ? writing_ : hostPath(doing, path);
}

void LinuxRuntime::writeOutput(const std::string& text) {
    if (output_.write(text.data(), std::ssize(text)) != std::ssize(text)) failToWrite();
}

void LinuxRuntime::vbaFileFlush() {
    if (!output_.isOpen()) return;
    writeOut();
    if (fsync(output_.handle()) != 0) failToWrite(std::strerror(errno));
}

void LinuxRuntime::rtcKillFiles(const std::string& path) {
    if (unlink(writtenPath("delete", path).c_str()) != 0) fail("delete", path);
}

void LinuxRuntime::vbaNameFile(const std::string& from, const std::string& to) {
    const auto target = disk_.toNewHost(to);
    if (!target) core::failTo("rename to", to, "No such drive");
    if (!renameToNew(writtenPath("rename", from), *target)) fail("rename " + from + " to", to);
}

void LinuxRuntime::rtcShell(const std::string& command, int windowStyle) {
    const CommandLine line(command);
    const bool maximised = windowStyle == maximisedFocus;
    const std::string program = line.words.empty() ? "" : line.words.front();
    if (caseFolded(program).ends_with(".bat")) {
        startScript(program, maximised);
        return;
    }
    const Invocation invocation = launcher_.prepare(line);
    if (invocation.inTerminal) {
        startInTerminal(invocation.words, maximised);
    } else {
        startDetached(invocation, programs_, [](const Ending&) {});
    }
}

void LinuxRuntime::startInTerminal(const std::vector<std::string>& words, bool maximised) {
    const Invocation terminal = inTerminal(words, maximised);
    startDetached(terminal, programs_, [this, name = terminal.words.front()](const Ending& ending) {
        if (ending.isGood()) return;
        rtcMsgBox("The terminal " + name + ' ' + ending.text() +
                      ". Name another one in the environment variable TERMINAL.",
                  okOnly, "");
    });
}

void LinuxRuntime::startScript(const std::string& path, bool maximised) {
    const HostPath script = hostPath("start", path);
    readBatch(script);  // told here rather than in the terminal
    const HostPath interpreter = programFolder_ / "nwbw-batch";
    if (access(interpreter.c_str(), X_OK) != 0)
        refuseToStart(path, "the program nwbw-batch is missing in " + programFolder_.text());
    startInTerminal({interpreter.text(), script.text(), platform::currentFolder().text(),
                     disk_.drives().prefix().text()},
                    maximised);
}

std::vector<std::string> LinuxRuntime::drives() {
    return disk_.drives().names();
}

std::string LinuxRuntime::currentFolder() {
    return disk_.toWindows(platform::currentFolder());
}

std::vector<std::string> LinuxRuntime::folders(const std::string& path) {
    std::vector<std::string> names;
    try {
        const HostPath folder = hostPath("open", path);
        for (const fs::directory_entry& entry : fs::directory_iterator(folder.text())) {
            const std::string name = entry.path().filename();
            std::error_code unreadable;
            if (name.starts_with('.') || !entry.is_directory(unreadable)) continue;
            names.push_back(disk_.windowsName(folder, name));
        }
    } catch (const fs::filesystem_error& error) {
        core::failTo("open", path, error.code().message());
    }
    return names;
}

}  // namespace platform
