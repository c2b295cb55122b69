#pragma once

#include <functional>
#include <string>

#include "core/app_state.h"
#include "core/runtime.h"
#include "forms/application.h"

namespace core {

inline constexpr const char* appTitle = "The Norvane Workbench";

/// What the forms and procedures of the program work with.
struct Program {
    Runtime& runtime;
    forms::Application& application;
    AppState state;
    /// Nothing could be written beside the program when it started, and the user knows.
    bool folderIsReadOnly = false;
    /// The settings file that could not be read, until the user has been told where it is; else
    /// empty.
    std::string unreadSettings = {};
};

/// The start of a run: shows the splash, then fills the state from the settings file. Tells the
/// user if the program's folder cannot be written.
void Main(Program& program, const std::function<void()>& showSplash);

/// True if files can be made in the program's folder.
bool canWriteBeside(Runtime& runtime);

/// True if the path is set and names an ordinary file.
bool exists(Runtime& runtime, const std::string& path);

/// The short form of a path, empty if it names nothing that exists or is too long.
std::string GetShortName(Runtime& runtime, const std::string& path);

}  // namespace core
