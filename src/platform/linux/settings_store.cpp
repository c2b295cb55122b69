#include "platform/linux/settings_store.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>
#include <iostream>

namespace platform {

namespace {

QString fileOf(const std::string& application) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/nwbw/" +
           QString::fromStdString(application) + ".json";
}

void write(const QString& path, const QJsonObject& sections) {
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    const QByteArray text = QJsonDocument(sections).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit()) return;
    std::cerr << "Cannot write " << path.toStdString() << ": " << file.errorString().toStdString()
              << std::endl;
}

}  // namespace

SettingsStore::~SettingsStore() {
    for (const auto& [application, store] : stores_)
        if (store.changed) write(fileOf(application), store.sections);
}

SettingsStore::Store& SettingsStore::storeOf(const std::string& application) {
    const auto [entry, isNew] = stores_.try_emplace(application);
    if (QFile file(fileOf(application)); isNew && file.open(QIODevice::ReadOnly))
        entry->second.sections = QJsonDocument::fromJson(file.readAll()).object();
    return entry->second;
}

std::string SettingsStore::value(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& byDefault) {
    const QJsonObject values =
        storeOf(application).sections[QString::fromStdString(section)].toObject();
    return values[QString::fromStdString(key)]
        .toString(QString::fromStdString(byDefault))
        .toStdString();
}

void SettingsStore::setValue(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& value) {
    Store& store = storeOf(application);
    QJsonValueRef values = store.sections[QString::fromStdString(section)];
    QJsonObject changed = values.toObject();
    changed[QString::fromStdString(key)] = QString::fromStdString(value);
    values = changed;
    store.changed = true;
}

}  // namespace platform
