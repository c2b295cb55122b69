#include "platform/linux/launch/search_path.h"

#include <QByteArrayList>
#include <QStandardPaths>
#include <QStringList>

namespace platform {

std::string onSearchPath(const std::string& name) {
    if (name.find('\0') != std::string::npos) return "";
    QStringList folders = qEnvironmentVariable("PATH", "/usr/bin:/bin").split(':');
    folders.removeIf([](const QString& folder) { return !folder.startsWith('/'); });
    // Given an empty list, Qt would search the whole path.
    if (folders.isEmpty()) return "";
    return QStandardPaths::findExecutable(QString::fromStdString(name), folders).toStdString();
}

void ignoreRelativeBaseFolders() {
    const auto isRelative = [](const QByteArray& folder) { return !folder.startsWith('/'); };
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        if (isRelative(qgetenv(name))) qunsetenv(name);
    for (const char* name : {"XDG_CONFIG_DIRS", "XDG_DATA_DIRS"}) {
        QByteArrayList folders = qgetenv(name).split(':');
        folders.removeIf(isRelative);
        qputenv(name, folders.join(':'));  // empty counts as unset
    }
}

}  // namespace platform
