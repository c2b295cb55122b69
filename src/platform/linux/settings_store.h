#pragma once

#include <QJsonObject>
#include <QString>
#include <map>
#include <string>

namespace platform {

/// The user's settings store: a JSON file for each application, in the user's folder for
/// configurations. New values are kept in memory and written by the destructor, so that nothing
/// else has to wait for that folder. There is no lock: the last program to end wins.
class SettingsStore {
  public:
    SettingsStore() = default;
    /// Writes the new values. A failure goes to standard error.
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// Returns the stored value for the key, or the default.
    std::string value(const std::string& application, const std::string& section,
                      const std::string& key, const std::string& byDefault);
    void setValue(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& value);

  private:
    struct Store {
        QJsonObject sections;
        bool changed = false;
    };

    /// Reads the application's file when it is first needed.
    Store& storeOf(const std::string& application);

    std::map<std::string, Store> stores_;
};

}  // namespace platform
