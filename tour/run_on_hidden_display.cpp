#include "run_on_hidden_display.h"

#include <cstdlib>
#include <iostream>

namespace tour {

namespace {

namespace fs = std::filesystem;

/// Makes the processes independent of the caller's environment. `runtime` is a new folder for their
/// temporary files.
void setEnvironment(const fs::path& runtime) {
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", fs::absolute(runtime).c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TERMINAL", "xterm -fa \"Liberation Mono\" -fs 10", 1);
    for (const char* name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME",
                             "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR", "XDG_CURRENT_DESKTOP"})
        unsetenv(name);
}

void run(const std::string& name, const fs::path& project, const fs::path& build,
         const Work& work) {
    fs::path folder = project / "build" / name;
    if (fs::exists(build / "bin" / "nwbw.exe")) folder += "-windows";
    fs::remove_all(folder);
    fs::create_directories(folder);
    setEnvironment(folder / "runtime");

    const auto demo = makeDemo(folder / "demo", project, build);
    const Display display;
    try {
        work(display, *demo, folder);
    } catch (const std::exception&) {
        display.picture(folder / "failed.png");
        throw;
    }
}

}  // namespace

int runOnHiddenDisplay(const std::string& name, int argumentCount, char** arguments,
                       const Work& work) {
    if (argumentCount != 3) {
        std::cerr << name << " PROJECT_FOLDER BUILD_FOLDER\n";
        return 2;
    }
    adoptOrphans();
    int code = 0;
    try {
        run(name, arguments[1], arguments[2], work);
    } catch (const std::exception& error) {
        std::cerr << "\nThe " << name << " failed: " << error.what() << "\n";
        code = 1;
    }
    endOrphans();
    return code;
}

}  // namespace tour
