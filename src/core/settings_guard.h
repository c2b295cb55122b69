#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "core/runtime.h"

namespace core {

/// Guards the settings files on the disk from this run's saves: a save never destroys a settings
/// file that this run did not read.
class SettingsGuard {
  public:
    explicit SettingsGuard(Runtime& runtime) : runtime_(runtime) {}

    /// Notes whether the load has read the current settings file.
    void setRead(bool read) { read_ = read; }
    /// Renames the files that exist to names that no save touches, unless the current settings file
    /// has been read. After that it belongs to this run, and nothing is renamed again.
    void putAside(std::initializer_list<std::string> files);
    /// Shows, once, where the files are kept.
    void showKept();

    /// Finds out whether the program's folder is writable, and shows a message if it is not.
    void checkFolder();
    /// True if the folder was not writable at the start; the user has been told.
    [[nodiscard]] bool folderIsReadOnly() const { return folderIsReadOnly_; }
    /// False if the folder was not writable at the start and still is not.
    [[nodiscard]] bool canSave() const { return !folderIsReadOnly_ || canWriteInFolder(); }

  private:
    [[nodiscard]] bool canWriteInFolder() const;

    Runtime& runtime_;
    bool read_ = false;
    std::vector<std::string> kept_;  ///< put aside, and not shown yet
    bool folderIsReadOnly_ = false;
};

}  // namespace core
