#include "platform/qt/file_filter.h"

namespace qt {

namespace {

QString withoutCase(const QString& pattern) {
    if (pattern == "*.*") return "*";
    QString result;
    for (const QChar character : pattern) {
        if (character.isLetter()) {
            result += '[';
            result += character.toLower();
            result += character.toUpper();
            result += ']';
        } else {
            result += character;
        }
    }
    return result;
}

}  // namespace

QStringList nameFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2)
        filters += parts[i] + " (" + withoutCase(parts[i + 1]) + ")";
    return filters;
}

}  // namespace qt
