#include "platform/linux/disk/case_fold.h"

#include <QString>
#include <QStringDecoder>
#include <algorithm>

namespace platform {

namespace {

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string caseFolded(std::string_view text) {
    if (!std::ranges::all_of(text, isAscii)) {
        using Flag = QStringDecoder::Flag;
        QStringDecoder decode(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
        const QString decoded = decode(QByteArrayView(text.data(), std::ssize(text)));
        // A name that is not UTF-8 keeps its bytes, which distinguish it from others.
        if (!decode.hasError()) return decoded.toCaseFolded().toStdString();
    }
    std::string folded(text);
    std::ranges::transform(folded, folded.begin(), lowered);
    return folded;
}

bool equalIgnoringCase(std::string_view one, std::string_view other) {
    // Most names differ early, in ASCII characters.
    for (std::size_t i = 0; i < std::min(one.size(), other.size()); ++i) {
        if (!isAscii(one[i]) || !isAscii(other[i])) return caseFolded(one) == caseFolded(other);
        if (lowered(one[i]) != lowered(other[i])) return false;
    }
    return one.size() == other.size();
}

}  // namespace platform
