#pragma once

#include <string>

namespace core {

/// Reads the fields of a text one by one, as Runtime::vbaInputFile gives them: leading blanks are
/// skipped; a field ends at a comma or at the end of its line; one that begins with a double quote
/// runs to the next double quote, and what follows up to the comma or line end is dropped. An
/// empty line is an empty field.
class FieldReader {
  public:
    explicit FieldReader(std::string text) : text_(std::move(text)) {}

    [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }
    /// The next field; empty behind the end.
    std::string next();

  private:
    std::string text_;
    std::size_t at_ = 0;
};

}  // namespace core
