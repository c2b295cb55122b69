#pragma once

#include <string>
#include <vector>

namespace forms {

/// What the drive and folder lists need from the disk. A failure throws RuntimeError with the
/// system's text.
class Disk {
  public:
    virtual ~Disk() = default;
    /// Returns the drives, as "c:", in order.
    virtual std::vector<std::string> drives() = 0;
    /// Returns the full path of the program's current folder.
    virtual std::string currentFolder() = 0;
    /// Returns the names of the folders in the folder. Throws if it does not exist or cannot be
    /// read.
    virtual std::vector<std::string> folders(const std::string& path) = 0;
};

}  // namespace forms
