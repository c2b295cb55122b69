#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "child.h"
#include "steps.h"

namespace tour {

/// The program in a demo folder of its own, and what can be seen of it there.
class Demo {
  public:
    virtual ~Demo() = default;

    /// What the system that the program runs on does in its own way.
    [[nodiscard]] virtual System system() const = 0;
    /// Starts the program.
    [[nodiscard]] std::unique_ptr<Child> start() const;

    /// The text of the file with a path of drive c, or of one of the program's folder.
    [[nodiscard]] std::string text(const std::string& path) const;
    /// The lines of the last call that a practice program has recorded, with paths of drive c.
    /// "notepad" is the plain text editor of the display.
    [[nodiscard]] std::vector<std::string> lastCall(const std::string& program) const;
    /// Forgets the calls of the program.
    void forgetCalls(const std::string& program) const;

  protected:
    /// The places are those inside the demo's folder.
    Demo(const std::filesystem::path& folder, const std::filesystem::path& program,
         const std::filesystem::path& driveC, const std::filesystem::path& notepad);

    /// The line of a record, with a path of drive c in the system's own form.
    [[nodiscard]] virtual std::string withDrive(std::string line) const = 0;

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
    [[nodiscard]] const std::filesystem::path& driveC() const { return driveC_; }

  private:
    [[nodiscard]] std::filesystem::path place(const std::string& path) const;
    [[nodiscard]] std::filesystem::path recordOf(const std::string& program) const;

    std::filesystem::path folder_;
    std::filesystem::path program_;
    std::filesystem::path driveC_;
    std::filesystem::path notepad_;
};

/// Makes the demo in an empty folder, with the program of the build folder: that of this system, or
/// the one of Windows, which Wine runs. Throws std::runtime_error.
std::unique_ptr<Demo> makeDemo(const std::filesystem::path& folder,
                               const std::filesystem::path& project,
                               const std::filesystem::path& build);

/// The text as lines, without their ends.
std::vector<std::string> lines(const std::string& text);

}  // namespace tour
