/// A tour of the real program by real keys and clicks, in a demo folder. Needs a display of its
/// own, without a window manager: scripts/hidden-display. Prints each step and the calls of the
/// tools, and takes a screenshot of each step. Fails if a step does not succeed. The program is the
/// one in the build folder; a Windows program runs under Wine.
///
///     tour PROJECT_FOLDER BUILD_FOLDER

#include <cstdlib>
#include <iostream>

#include "guide.h"

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

void run(const fs::path& project, const fs::path& build) {
    const bool windows = fs::exists(build / "bin" / "nwbw.exe");
    const fs::path folder = project / "build" / (windows ? "tour-windows" : "tour");
    fs::remove_all(folder);
    fs::create_directories(folder);
    setEnvironment(folder / "runtime");

    const tour::Demo demo(folder / "demo", project, build);
    const tour::Display display;
    tour::Guide guide(display, demo, folder);
    try {
        tour::takeTour(guide, demo.system());
    } catch (const std::exception&) {
        display.picture(folder / "failed.png");
        throw;
    }
    std::cout << "\nThe tour succeeded. Its screenshots are in " << folder.string() << ".\n";
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::cerr << "tour PROJECT_FOLDER BUILD_FOLDER\n";
        return 2;
    }
    try {
        run(arguments[1], arguments[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "\nThe tour failed: " << error.what() << "\n";
        return 1;
    }
}
