#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "child.h"

namespace tour {

/// What differs between the systems that the program runs on.
struct System {
    // Places in the demo's folder.
    std::filesystem::path program;
    std::filesystem::path driveC;
    std::filesystem::path notepad;
    std::string splash;    ///< title of the splash's window; its form has none
    std::string terminal;  ///< title of a script's window
    // Two folders and the stem of a file, as the tools receive them: maybe in their short form.
    std::string library;
    std::string games;
    std::string quest;
    std::string caveListing;  ///< as Notepad receives it from a script
};

/// The program in its own demo folder, and the files it leaves there.
class Demo {
  public:
    /// Creates the demo in an empty folder, with the program from the build folder: this system's,
    /// or the Windows one to run under Wine. Throws std::runtime_error.
    Demo(const std::filesystem::path& folder, const std::filesystem::path& project,
         const std::filesystem::path& build);
    Demo(const Demo&) = delete;
    Demo& operator=(const Demo&) = delete;
    ~Demo();

    [[nodiscard]] const System& system() const { return system_; }
    /// Spawns the program.
    [[nodiscard]] std::unique_ptr<Child> start() const;

    /// Returns the text of a file, given by a path on drive c or by a name in the program's folder.
    [[nodiscard]] std::string text(const std::string& path) const;
    /// Returns the record of a practice program's last call, as lines, with paths on drive c.
    /// "notepad" is the desktop's plain text editor.
    [[nodiscard]] std::vector<std::string> lastCall(const std::string& program) const;
    /// Deletes the program's record of calls.
    void forgetCalls(const std::string& program) const;

  private:
    [[nodiscard]] std::string withDrive(std::string line) const;
    [[nodiscard]] std::filesystem::path place(const std::string& path) const;
    [[nodiscard]] std::filesystem::path recordOf(const std::string& program) const;

    const System& system_;
    std::filesystem::path folder_;
};

/// Splits the text into lines without line endings.
std::vector<std::string> lines(const std::string& text);

}  // namespace tour
