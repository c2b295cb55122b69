#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// How a practice program was called, and the record of it.
namespace practice {

/// One call of a practice program, appended to `<name>.record` beside the program: its name, its
/// working folder and its arguments, one per line. Each line begins with a keyword, and each call
/// with "run".
class Record {
  public:
    /// Records the call. The arguments are those of main.
    Record(int argumentCount, const char* const* arguments);

    /// Records a line of input that the program has read.
    void addInput(std::string_view line) const;

    /// Returns the name that the program was called by, in lower case and without ".exe".
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::vector<std::string>& arguments() const { return arguments_; }

  private:
    void add(std::string_view text) const;

    std::string name_;
    std::filesystem::path file_;
    std::vector<std::string> arguments_;
};

}  // namespace practice
