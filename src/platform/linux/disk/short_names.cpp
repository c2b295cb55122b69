#include "platform/linux/disk/short_names.h"

#include <QCryptographicHash>
#include <QStringDecoder>
#include <QtEndian>
#include <algorithm>
#include <unordered_set>

#include "platform/linux/disk/case_fold.h"

namespace platform {

namespace {

constexpr std::size_t longestStem = 8;
constexpr std::size_t longestExtension = 3;
constexpr std::size_t longestBase = 6;

bool isPlain(char c) {
    constexpr std::string_view marks = "$%'-_@~`!(){}^#&";
    return isLetter(c) || (c >= '0' && c <= '9') || marks.find(c) != std::string_view::npos;
}

bool isShortStem(std::string_view stem) {
    return stem.size() <= longestStem && std::ranges::all_of(stem, isPlain) &&
           !stem.starts_with('-');
}

bool isShortExtension(std::string_view extension) {
    return extension.size() <= longestExtension && std::ranges::all_of(extension, isPlain);
}

/// Returns the text in upper case, without blanks and dots, and with "_" for any other character
/// that is not plain.
std::string cleaned(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool insideCharacter = (static_cast<unsigned char>(c) & 0xc0) == 0x80;
        if (c == ' ' || c == '.' || insideCharacter) continue;
        if (c >= 'a' && c <= 'z') {
            result += static_cast<char>(c - 'a' + 'A');
        } else {
            result += isPlain(c) ? c : '_';
        }
    }
    return result;
}

/// Returns the letters that a stem's short form begins with.
std::string baseOf(std::string_view stem) {
    std::string base = cleaned(stem).substr(0, longestBase);
    if (base.empty()) return "_";
    if (base.front() == '-') base.front() = '_';  // no option
    return base;
}

/// Returns a short stem with a digest of the long one; another one for each round.
std::string withDigest(std::string_view stem, int round) {
    constexpr std::string_view digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::number(round));
    hash.addData(QByteArray(stem.data(), std::ssize(stem)));
    auto number = qFromBigEndian<quint64>(hash.result().constData());
    std::string form{baseOf(stem).front(), '~'};
    for (; form.size() < longestStem; number /= digits.size())
        form += digits[number % digits.size()];
    return form;
}

/// Marks an extension that was shortened by "~": a short one that begins like it is another one.
std::string shortExtension(std::string_view extension) {
    std::string plain = cleaned(extension);
    if (isShortExtension(extension)) return plain;
    return plain.substr(0, longestExtension - 1) + '~';
}

std::string joined(std::string_view stem, std::string_view extension) {
    std::string name(stem);
    if (!extension.empty()) name.append(".").append(extension);
    return name;
}

/// Returns what names with the same short form have in common.
std::string keyOf(std::string_view name) {
    const NameParts parts(name);
    return joined(parts.stem, shortExtension(parts.extension));
}

bool isWindowsCharacter(char c) {
    constexpr std::string_view reserved = "\\:*?\"<>|\x7f";
    return (c < 0 || c >= ' ') && reserved.find(c) == std::string_view::npos;
}

}  // namespace

NameParts::NameParts(std::string_view name) : stem(name) {
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == name.size()) return;
    stem = name.substr(0, dot);
    extension = name.substr(dot + 1);
}

bool fitsWindows(std::string_view name) {
    if (!std::ranges::all_of(name, isWindowsCharacter)) return false;
    if (std::ranges::all_of(name, [](char c) { return c > 0; })) return true;
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(QByteArrayView(name.data(), std::ssize(name)));
    return !decode.hasError() &&
           std::ranges::none_of(text, [](QChar c) { return c.category() == QChar::Other_Control; });
}

bool isShortName(std::string_view name) {
    const NameParts parts(name);
    return isShortStem(parts.stem) && isShortExtension(parts.extension);
}

bool mayBeShortened(std::string_view name) {
    const std::string_view stem = NameParts(name).stem;
    return stem.size() <= longestStem && stem.find('~') != std::string_view::npos;
}

ShortNames::ShortNames(const std::vector<std::string>& names) {
    std::unordered_set<std::string> taken;  // short stems, case folded
    std::unordered_set<std::string_view> stems;
    Stems numbered;
    for (const std::string& name : names) {
        const std::string_view stem = NameParts(name).stem;
        const bool isShort = isShortStem(stem);
        if (isShort) taken.insert(caseFolded(stem));
        if (isShortName(name) || !stems.insert(stem).second) continue;
        if (!isShort && fitsWindows(stem)) numbered.push_back(stem);
    }

    // Gives a form to each stem that has it alone. Returns the others.
    const auto giveOut = [&](const Stems& to, Forms& forms, auto formOf) {
        std::unordered_map<std::string, Stems> competitors;
        for (const std::string_view stem : to)
            competitors[formOf(stem)].push_back(stem);
        Stems left;
        for (const auto& [form, competing] : competitors) {
            const bool isFree = taken.insert(caseFolded(form)).second;
            if (isFree && competing.size() == 1) {
                forms.emplace(competing.front(), form);
                longStems_.emplace(caseFolded(form), competing.front());
            } else {
                left.insert(left.end(), competing.begin(), competing.end());
            }
        }
        return left;
    };
    giveOut(numbered, numbered_, [](auto stem) { return baseOf(stem) + "~1"; });
    Stems left(stems.begin(), stems.end());
    for (int round = 1; !left.empty(); ++round)
        left = giveOut(left, digests_, [round](auto stem) { return withDigest(stem, round); });

    for (const std::string& name : names) {
        if (isShortName(name)) continue;
        const auto [place, isNew] = names_.emplace(keyOf(name), name);
        if (!isNew) place->second.clear();
    }
}

std::string ShortNames::shortFor(const std::string& name) const {
    if (isShortName(name)) return name;
    const NameParts parts(name);
    const std::string stem(parts.stem);
    const auto number = fitsWindows(name) ? numbered_.find(stem) : numbered_.end();
    const auto form = number != numbered_.end() ? number : digests_.find(stem);
    if (form == digests_.end()) return name;
    return joined(form->second, shortExtension(parts.extension));
}

std::string ShortNames::longFor(std::string_view shortName) const {
    const NameParts parts(shortName);
    const auto stem = longStems_.find(caseFolded(parts.stem));
    if (stem == longStems_.end()) return std::string(shortName);
    std::string longName = joined(stem->second, parts.extension);
    const auto found = names_.find(keyOf(longName));
    if (found == names_.end()) return longName;
    return found->second.empty() ? std::string(shortName) : found->second;
}

}  // namespace platform
