#pragma once

#include <functional>
#include <string>

#include "core/field_reader.h"
#include "core/runtime.h"

namespace core {

/// Throws RuntimeError "Cannot DOING PATH: REASON".
[[noreturn]] void failTo(const std::string& doing, const std::string& path,
                         const std::string& reason);

/// The part of the runtime that is the same on every system: reading fields, line ends, and titles
/// of message boxes.
class CommonRuntime : public Runtime {
  public:
    /// Shows a modal message box. The title is never empty.
    using MessageBox =
        std::function<Answer(const std::string& text, int flags, const std::string& title)>;

    explicit CommonRuntime(MessageBox messageBox) : messageBox_(std::move(messageBox)) {}

    void vbaFileOpen(const std::string& path, OpenMode mode) override;
    void vbaFileClose() override;
    std::string vbaInputFile() override { return input_.next(); }
    bool rtcEndOfFile() override { return input_.atEnd(); }
    void vbaPrintFile(const std::string& text) override;
    Answer rtcMsgBox(const std::string& text, int flags, const std::string& title) override;

  protected:
    /// Returns the contents of a file.
    virtual std::string readFile(const std::string& path) = 0;
    /// Creates the file, or replaces an existing one by the time it is closed.
    virtual void openOutput(const std::string& path) = 0;
    [[nodiscard]] virtual bool isOutputOpen() const = 0;
    virtual void writeOutput(const std::string& text) = 0;
    /// Does nothing if no file is open.
    virtual void closeOutput() = 0;

    /// The path of the file last opened for output, for messages.
    [[nodiscard]] const std::string& outputPath() const { return outputPath_; }

  private:
    MessageBox messageBox_;
    FieldReader input_{""};
    std::string outputPath_;
};

}  // namespace core
