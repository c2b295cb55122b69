#include "child.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <system_error>

namespace tour {

Child::Child(const std::vector<std::string>& words, int inherited) {
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    id_ = fork();
    if (id_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (id_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (inherited >= 0) fcntl(inherited, F_SETFD, 0);
        execvp(arguments[0], arguments.data());
        perror(arguments[0]);
        _exit(127);
    }
}

Child::~Child() {
    if (ended()) return;
    kill(id_, SIGTERM);
    for (int tries = 0; tries < 40 && !ended(); ++tries)
        usleep(50'000);
    if (ended_) return;
    kill(id_, SIGKILL);
    wait();
}

bool Child::ended() {
    if (!ended_) ended_ = waitpid(id_, &status_, WNOHANG) == id_;
    return ended_;
}

int Child::wait() {
    if (!ended_) ended_ = waitpid(id_, &status_, 0) == id_;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
}

void adoptOrphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void endOrphans() {
    // An ended process passes its own children to the tour, so repeat.
    for (;;) {
        std::ifstream children("/proc/self/task/" + std::to_string(getpid()) + "/children");
        for (pid_t child = 0; children >> child;)
            kill(child, SIGKILL);
        if (waitpid(-1, nullptr, 0) < 0) return;
    }
}

}  // namespace tour
