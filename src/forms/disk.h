#pragma once

#include <string>
#include <vector>

namespace forms {

/// What the lists of drives and folders ask of the disk. A failure is a RuntimeError with the
/// system's text.
class Disk {
  public:
    virtual ~Disk() = default;
    /// The drives, as "c:", in order.
    virtual std::vector<std::string> drives() = 0;
    /// The full path of the program's current folder.
    virtual std::string currentFolder() = 0;
    /// The names of the folders inside the folder. Throws if it does not exist or cannot be read.
    virtual std::vector<std::string> folders(const std::string& path) = 0;
};

}  // namespace forms
