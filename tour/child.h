#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tour {

/// A process that is ended together with this object or with the tour.
class Child {
  public:
    /// Spawns the program, found on the search path, with its arguments. It inherits the standard
    /// file descriptors and `inherited`. Throws std::system_error.
    explicit Child(const std::vector<std::string>& words, int inherited = -1);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    /// True once the process has ended.
    [[nodiscard]] bool ended();
    /// Waits for the end. Returns the exit code, or -1 if a signal ended it.
    int wait();

  private:
    pid_t id_;
    int status_ = 0;
    bool ended_ = false;
};

/// Ends all processes that the tour's child processes left running. Requires an earlier
/// adoptOrphans.
void endOrphans();
/// Makes the tour the parent of its orphaned descendants.
void adoptOrphans();

}  // namespace tour
