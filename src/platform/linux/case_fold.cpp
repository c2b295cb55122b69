#include "platform/linux/case_fold.h"

#include <QString>
#include <algorithm>

namespace platform {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string caseFolded(std::string_view text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!std::all_of(text.begin(), text.end(), isAscii)) {
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
            .toCaseFolded()
            .toStdString();
    }
    std::string folded(text);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

bool sameButForCase(std::string_view one, std::string_view other) {
    return caseFolded(one) == caseFolded(other);
}

}  // namespace platform
