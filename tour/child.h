#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tour {

/// A process that is killed together with this object.
class Child {
  public:
    /// Spawns the program, found on the search path, with its arguments. Throws std::system_error.
    explicit Child(const std::vector<std::string>& words);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    /// True once the process has ended.
    [[nodiscard]] bool ended();
    /// Waits for the end. Returns the exit code, or -1 if a signal ended it.
    int wait();

  private:
    pid_t id_ = 0;
    int status_ = 0;
    bool ended_ = false;
};

}  // namespace tour
