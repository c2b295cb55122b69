#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What a practice program knows about its own start, and the record that it keeps of it.
namespace practice {

/// One call of a practice program, written to the end of `<name>.record` beside the program: the
/// name, the folder that it was started in and its arguments, a line each. The words that stand
/// before them tell the lines apart, and each call begins with "run".
class Record {
  public:
    /// Writes down the call. Arguments are as main gets them.
    Record(int argumentCount, const char* const* arguments);

    /// Adds a line of input that the program has read.
    void addInput(std::string_view line) const;

    /// The name that the program was called by, in lower case and without ".exe".
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::vector<std::string>& arguments() const { return arguments_; }

  private:
    void add(std::string_view text) const;

    std::string name_;
    std::filesystem::path file_;
    std::vector<std::string> arguments_;
};

}  // namespace practice
