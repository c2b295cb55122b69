#include "platform/linux/launch/desktop_entry.h"

#include <QByteArray>
#include <QFile>
#include <QStandardPaths>
#include <QStringList>
#include <QTextStream>

#include "platform/linux/launch/search_path.h"
#include "platform/linux/launch/shell_words.h"

namespace platform {

namespace {

/// Returns a key's value in a group of a desktop file, or an empty string.
QString valueIn(const QString& path, const QString& group, const QString& key) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    bool inGroup = false;
    QTextStream lines(&file);
    for (QString line; lines.readLineInto(&line);) {
        line = line.trimmed();
        if (line.startsWith('[')) inGroup = line == '[' + group + ']';
        const auto equals = line.indexOf('=');
        if (inGroup && equals > 0 && line.left(equals).trimmed() == key)
            return line.mid(equals + 1).trimmed();
    }
    return {};
}

/// Returns the files that may name the default program, highest priority first.
QStringList defaultsFiles() {
    QStringList names;
    const auto desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower();
    for (const QString& desktop : desktops.split(':', Qt::SkipEmptyParts))
        names.append(desktop + "-mimeapps.list");
    names.append("mimeapps.list");

    QStringList files;
    for (const auto place :
         {QStandardPaths::GenericConfigLocation, QStandardPaths::ApplicationsLocation}) {
        for (const QString& folder : QStandardPaths::standardLocations(place)) {
            for (const QString& name : names)
                files.append(folder + '/' + name);
        }
    }
    return files;
}

std::optional<Invocation> programOf(const QString& entryFile, const std::string& file) {
    const QString group = "Desktop Entry";
    if (valueIn(entryFile, group, "Hidden") == "true") return {};
    Invocation program;
    program.words = execWords(valueIn(entryFile, group, "Exec").toStdString(), file);
    program.inTerminal = valueIn(entryFile, group, "Terminal") == "true";
    if (program.words.empty()) return {};
    program.words[0] = onSearchPath(program.words[0]);
    if (program.words[0].empty()) return {};
    return program;
}

}  // namespace

std::vector<std::string> execWords(const std::string& exec, const std::string& file) {
    const std::string url =
        "file://" + QByteArray::fromStdString(file).toPercentEncoding("/").toStdString();
    std::vector<std::string> words;
    bool fileNamed = false;
    for (const std::string& part : shellWords(exec)) {
        const bool asFile = part == "%f" || part == "%F";
        if (asFile || part == "%u" || part == "%U") {
            if (!file.empty()) words.push_back(asFile ? file : url);
            fileNamed = true;
        } else if (part == "%%") {
            words.emplace_back("%");
        } else if (part.size() != 2 || part[0] != '%') {  // drops other codes
            words.push_back(part);
        }
    }
    if (!fileNamed && !file.empty() && !words.empty()) words.push_back(file);
    return words;
}

std::optional<Invocation> defaultProgram(const std::string& mimeType, const std::string& file) {
    const auto type = QString::fromStdString(mimeType);
    for (const QString& list : defaultsFiles()) {
        const auto entries = valueIn(list, "Default Applications", type);
        for (const QString& entry : entries.split(';', Qt::SkipEmptyParts)) {
            const auto found = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry);
            if (found.isEmpty()) continue;
            if (auto program = programOf(found, file)) return program;
        }
    }
    return {};
}

}  // namespace platform
