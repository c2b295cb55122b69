#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "child.h"

namespace tour {

/// The program in a demo folder of its own, and what can be seen of it there.
class Demo {
  public:
    /// Makes the demo in an empty folder, with the program of the build folder. Throws
    /// std::runtime_error.
    Demo(const std::filesystem::path& folder, const std::filesystem::path& project,
         const std::filesystem::path& build);

    /// Starts the program.
    std::unique_ptr<Child> start() const;

    /// The text of the file with a path of drive c, or of one of the program's folder.
    [[nodiscard]] std::string text(const std::string& path) const;
    /// The lines of the last call that a practice program has recorded, with paths of drive c.
    /// "notepad" is the plain text editor of the display.
    [[nodiscard]] std::vector<std::string> lastCall(const std::string& program) const;
    /// Forgets the calls of the program.
    void forgetCalls(const std::string& program) const;

  private:
    [[nodiscard]] std::filesystem::path place(const std::string& path) const;
    [[nodiscard]] std::filesystem::path recordOf(const std::string& program) const;

    std::filesystem::path folder_;
    std::filesystem::path driveC_;
};

/// The text as lines, without their ends.
std::vector<std::string> lines(const std::string& text);

}  // namespace tour
