#include "child.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <system_error>

namespace tour {

Child::Child(const std::vector<std::string>& words) {
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const int error = posix_spawnp(&id_, arguments[0], nullptr, nullptr, arguments.data(), environ);
    if (error != 0) throw std::system_error(error, std::generic_category(), words[0]);
}

Child::~Child() {
    if (ended()) return;
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

}  // namespace tour
