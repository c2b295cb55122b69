#pragma once

#include <functional>
#include <string>

#include "core/app_state.h"
#include "core/runtime.h"
#include "core/settings_guard.h"

namespace core {

inline constexpr const char* appTitle = "The Norvane Workbench";

/// The context that forms and procedures share.
struct Program {
    Runtime& runtime;
    AppState state = {};
    SettingsGuard settingsGuard{runtime};
};

/// Starts a run: shows the splash, then loads the settings into the state. Shows a message if the
/// program's folder is not writable.
void Main(Program& program, const std::function<void()>& showSplash);

/// True if the path is not empty and names an ordinary file.
bool exists(Runtime& runtime, const std::string& path);

/// Returns the short form of a path, or an empty string if the path does not exist or its short
/// form is too long.
std::string GetShortName(Runtime& runtime, const std::string& path);

}  // namespace core
