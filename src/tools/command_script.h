#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/module1.h"
#include "forms/controls.h"

namespace tools {

/// Longer stems, in characters, appear in commands in their short form.
inline constexpr std::size_t longestStem = 8;

/// Returns the path's file name without drive, folder and extension.
std::string_view stemOf(std::string_view path);

/// What the three panels with a command script share: splitting the file name into commands, and
/// writing and running the script. One instance serves all three, so the fields describe the panel
/// that was rebuilt last.
class CommandScript {
  public:
    explicit CommandScript(const core::Program& program) : program_(program) {}

    /// The file name without drive, folder and extension, as used in commands.
    std::string FileStem;
    /// Drive, folder and long stem of the file, without extension.
    std::string FileBase;

    /// Starts a command text: sets the box to the drive line and the "cd" line for the file's
    /// folder, and sets FileStem and FileBase.
    void SplitFileName(const std::string& fileText, forms::TextBox& box);

    /// Replaces a FileStem longer than longestStem by its short form. If no file exists under the
    /// file text, tries FileBase with each extension in turn; FileStem becomes empty if none
    /// exists.
    void ShortenStem(const std::string& fileText,
                     std::initializer_list<std::string_view> extensions);

    /// Writes the text to a script file beside the program and spawns it, or else in the temporary
    /// folder, which is the user's own. The tail pauses before the console closes, unless the text
    /// itself ends the script. Throws RuntimeError if the script cannot be written or spawned.
    void RunCommandScript(const std::string& commandText, bool withTail, int windowStyle);

  private:
    void runFrom(const std::string& folder, const std::string& commandText, bool withTail,
                 int windowStyle);

    const core::Program& program_;
};

}  // namespace tools
