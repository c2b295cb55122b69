#include "platform/linux/case_fold.h"

#include <QString>
#include <QStringDecoder>
#include <algorithm>

namespace platform {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string caseFolded(std::string_view text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!std::all_of(text.begin(), text.end(), isAscii)) {
        using Flag = QStringDecoder::Flag;
        QStringDecoder decode(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
        const QString decoded = decode(QByteArrayView(text.data(), std::ssize(text)));
        // The bytes of a name that is not UTF-8 tell it apart from others.
        if (!decode.hasError()) return decoded.toCaseFolded().toStdString();
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
