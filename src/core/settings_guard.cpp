#include "core/settings_guard.h"

#include <utility>

#include "core/module1.h"
#include "core/text.h"

namespace core {

/// Returns an unused name like that of the file, which tells what it was.
static std::string unusedName(Runtime& runtime, const std::string& file) {
    const std::size_t dot = file.rfind('.');
    for (int number = 1;; ++number) {
        std::string name = file;
        name.insert(dot, "-unread-" + std::to_string(number));
        if (!exists(runtime, name)) return name;
    }
}

void SettingsGuard::putAside(std::initializer_list<std::string> files) {
    if (read_) return;
    for (const std::string& file : files) {
        if (!exists(runtime_, file)) continue;
        const std::string name = unusedName(runtime_, file);
        runtime_.vbaNameFile(file, name);
        kept_.push_back(name);
    }
    read_ = true;
}

void SettingsGuard::showKept() {
    if (kept_.empty()) return;
    std::string list;
    for (const std::string& name : std::exchange(kept_, {}))
        list += (list.empty() ? "" : ", ") + core::quoted(name);
    runtime_.rtcMsgBox(
        "NWB/w found settings that it did not read when it started. They are kept as " + list + '.',
        Runtime::okOnly);
}

void SettingsGuard::checkFolder() {
    folderIsReadOnly_ = !canWriteInFolder();
    if (!folderIsReadOnly_) return;
    runtime_.rtcMsgBox("NWB/w cannot write to its folder " + core::quoted(runtime_.AppPath()) +
                           ", so your settings will not be kept when you close NWB/w. (Copy NWB/w "
                           "to a folder of your own to keep them.)",
                       Runtime::okOnly);
}

bool SettingsGuard::canWriteInFolder() const {
    const std::string probe = runtime_.AppPath() + "\\~nwbwtry.tmp";
    try {
        runtime_.vbaFileOpen(probe, Runtime::OpenMode::Output);
        runtime_.vbaFileClose();
        runtime_.rtcKillFiles(probe);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace core
