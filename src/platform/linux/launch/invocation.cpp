#include "platform/linux/launch/invocation.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "core/common_runtime.h"

namespace platform {

namespace {

class SpawnSetup {
  public:
    SpawnSetup() {
        posix_spawn_file_actions_init(&files);
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    }
    ~SpawnSetup() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    void readFrom(const std::string& file) {
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, file.c_str(), O_RDONLY, 0);
    }
    void ownSession() { posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID); }

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
};

/// Returns pointers to the texts, followed by a null pointer, as the system expects them.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environmentOf(const Invocation& invocation) {
    constexpr std::string_view variable = "WINEPREFIX=";
    std::vector<std::string> result;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const bool replaced = std::string_view(*entry).starts_with(variable);
        if (!replaced || invocation.winePrefix.empty()) result.emplace_back(*entry);
    }
    if (!invocation.winePrefix.empty())
        result.push_back(std::string(variable) + invocation.winePrefix);
    return result;
}

pid_t spawn(const Invocation& invocation, const SpawnSetup& setup) {
    std::vector<std::string> words = invocation.words;
    for (const std::string& word : words) {
        if (word.find('\0') == std::string::npos) continue;
        refuseToStart(words.front(), "a word holds a NUL byte");
    }
    std::vector<std::string> environment = environmentOf(invocation);
    pid_t process = 0;
    const int error = posix_spawn(&process, words.front().c_str(), &setup.files, &setup.attributes,
                                  pointersTo(words).data(), pointersTo(environment).data());
    if (error != 0) core::failTo("start", words.front(), std::strerror(error));
    return process;
}

/// Leaves the keyboard's signals to the program in the foreground. Sets an empty handler because a
/// started program would inherit SIG_IGN.
class KeyboardSignalGuard {
  public:
    KeyboardSignalGuard() {
        struct sigaction ignored = {};
        ignored.sa_handler = [](int) {};
        sigaction(SIGINT, &ignored, &interrupt_);
        sigaction(SIGQUIT, &ignored, &quit_);
    }
    ~KeyboardSignalGuard() {
        sigaction(SIGINT, &interrupt_, nullptr);
        sigaction(SIGQUIT, &quit_, nullptr);
    }
    KeyboardSignalGuard(const KeyboardSignalGuard&) = delete;
    KeyboardSignalGuard& operator=(const KeyboardSignalGuard&) = delete;

  private:
    struct sigaction interrupt_ = {};
    struct sigaction quit_ = {};
};

Ending endingOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFSIGNALED(status)) return {0, WTERMSIG(status)};
    return {WEXITSTATUS(status), 0};
}

/// Calls `ended` when the process has ended. A process that cannot be watched remains as a zombie
/// until this one ends.
void watch(pid_t process, QObject& owner, const std::function<void(const Ending&)>& ended) {
    if (QCoreApplication::instance() == nullptr) return;  // no event loop
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (handle < 0) return;
    auto* end = new QSocketNotifier(handle, QSocketNotifier::Read, &owner);
    QObject::connect(end, &QObject::destroyed, [handle] { close(handle); });
    QObject::connect(end, &QSocketNotifier::activated, [end, process, ended] {
        end->setEnabled(false);
        end->deleteLater();
        ended(endingOf(process));
    });
}

}  // namespace

std::string Ending::text() const {
    if (signal == 0) return "ended with exit code " + std::to_string(code);
    return "was ended by signal " + std::to_string(signal) + " (" + strsignal(signal) + ')';
}

void refuseToStart(const std::string& name, const std::string& reason) {
    throw core::Refusal("Cannot start " + name + ": " + reason);
}

void startDetached(const Invocation& invocation, QObject& owner,
                   const std::function<void(const Ending&)>& ended) {
    SpawnSetup setup;
    setup.readFrom("/dev/null");
    setup.ownSession();
    watch(spawn(invocation, setup), owner, ended);
}

Ending runToEnd(const Invocation& invocation, const std::string& inputFile) {
    SpawnSetup setup;
    if (!inputFile.empty()) setup.readFrom(inputFile);
    const KeyboardSignalGuard guard;
    return endingOf(spawn(invocation, setup));
}

}  // namespace platform
