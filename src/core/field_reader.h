#pragma once

#include <string>

namespace core {

/// Splits a text into the fields that Runtime::vbaInputFile returns. Leading blanks are skipped. A
/// field ends at a comma or at the end of its line; a field that begins with a double quote ends at
/// the next double quote, and the rest up to the comma or line end is dropped. An empty line is an
/// empty field.
class FieldReader {
  public:
    explicit FieldReader(std::string text) : text_(std::move(text)) {}

    [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }
    /// Returns the next field, or an empty string at end of input.
    std::string next();

  private:
    std::string text_;
    std::size_t at_ = 0;
};

}  // namespace core
