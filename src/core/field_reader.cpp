#include "core/field_reader.h"

#include <algorithm>

namespace core {

std::string FieldReader::next() {
    const auto from = [this](std::size_t found) { return std::min(found, text_.size()); };

    at_ = from(text_.find_first_not_of(' ', at_));
    std::string field;
    if (!atEnd() && text_[at_] == '"') {
        const std::size_t close = from(text_.find('"', at_ + 1));
        field = text_.substr(at_ + 1, close - at_ - 1);
        at_ = from(text_.find_first_of(",\r\n", close));
    } else {
        const std::size_t end = from(text_.find_first_of(",\r\n", at_));
        field = text_.substr(at_, end - at_);
        at_ = end;
    }
    if (text_.compare(at_, 2, "\r\n") == 0) ++at_;
    at_ = from(at_ + 1);
    return field;
}

}  // namespace core
