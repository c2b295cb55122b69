#pragma once

#include <functional>
#include <string>

#include "core/app_state.h"
#include "core/runtime.h"
#include "forms/application.h"

namespace core {

inline constexpr const char* appTitle = "The Norvane Workbench";
inline constexpr int appMajor = 1;
inline constexpr int appMinor = 0;
inline constexpr int appRevision = 0;

/// What the forms and procedures of the program work with.
struct Program {
    Runtime& runtime;
    forms::Application& application;
    AppState state;
};

/// The start of a run: shows the splash, then fills the state from the settings file.
void Main(Program& program, const std::function<void()>& showSplash);

/// True if the path is set and names an ordinary file.
bool exists(Runtime& runtime, const std::string& path);

/// The short form of a path, empty if it names nothing that exists or is too long.
std::string GetShortName(Runtime& runtime, const std::string& path);

}  // namespace core
