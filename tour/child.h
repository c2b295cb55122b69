#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tour {

/// A process that ends, at the latest, together with this object or with the tour.
class Child {
  public:
    /// Starts the program with its arguments; it is looked for on the search path. Of the tour's
    /// open files it gets the standard ones and `inherited`. Throws std::system_error.
    explicit Child(const std::vector<std::string>& words, int inherited = -1);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    /// True once the process has ended.
    [[nodiscard]] bool ended();
    /// Waits for the end; gives the exit code, or -1 if a signal ended it.
    int wait();

  private:
    pid_t id_;
    int status_ = 0;
    bool ended_ = false;
};

/// Ends all processes that the tour's own have left behind. Needs one call of adoptOrphans before.
void endOrphans();
/// Makes the tour the parent of each process that its own start and leave.
void adoptOrphans();

}  // namespace tour
