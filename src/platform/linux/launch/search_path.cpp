#include "platform/linux/launch/search_path.h"

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

}  // namespace platform
