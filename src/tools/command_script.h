#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/module1.h"
#include "forms/controls.h"

namespace tools {

/// A stem of more characters than this goes into the commands in its short form.
inline constexpr std::size_t longestStem = 8;

/// What the three panels with a command script have in common: the split of the panel's file name
/// into commands, and the script's way to disk and into its own console. One instance serves all
/// three, so the fields describe the panel that was rebuilt last.
class CommandScript {
  public:
    explicit CommandScript(const core::Program& program) : program_(program) {}

    /// The file name without drive, folder and extension, as it goes into the commands.
    std::string FileStem;
    /// Drive, folder and stem of the file, without extension, always with the long stem.
    std::string FileBase;

    /// Starts a command text: empties the box, writes the drive line and the "cd" line that the
    /// file's folder asks for, and sets FileStem and FileBase.
    void SplitFileName(const std::string& fileText, forms::TextBox& box);

    /// Replaces a FileStem that is longer than longestStem by its short form. Where the file text
    /// names nothing on the disk, the extensions are tried in turn behind FileBase; FileStem
    /// becomes empty if none of them names a file.
    void ShortenStem(const std::string& fileText,
                     std::initializer_list<std::string_view> extensions);

    /// Writes the text to the script file beside the program, or else in the user's own folder for
    /// such files, and starts that. The tail waits for a key before the console closes, where the
    /// text itself does not end the script. Throws RuntimeError if the script cannot be written or
    /// started.
    void RunCommandScript(const std::string& commandText, bool withTail, int windowStyle);

  private:
    const core::Program& program_;
};

}  // namespace tools
