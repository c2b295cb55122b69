/// A tour of the real program: on a display that nobody sees, worked by real keys and clicks, in a
/// demo folder. Tells each step, shows the scripts and the calls of the tools, and leaves a picture
/// of each step. Ends with an error if a step did not happen.
///
///     tour PROJECT_FOLDER BUILD_FOLDER
///
/// The program is the one of the build folder. That of Windows runs under Wine.

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "guide.h"

namespace {

namespace fs = std::filesystem;

/// Makes the tour's processes independent of where it is called. `runtime` is a new folder for
/// what they need while they run.
void settleEnvironment(const fs::path& runtime) {
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", fs::absolute(runtime).c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TERMINAL", "xterm -fa \"Liberation Mono\" -fs 10", 1);
    for (const char* name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME",
                             "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR", "XDG_CURRENT_DESKTOP"})
        unsetenv(name);
}

void takeTour(const fs::path& project, const fs::path& build) {
    fs::path folder = project / "build" / "tour";
    if (fs::exists(build / "bin" / "nwbw.exe")) folder += "-windows";
    fs::remove_all(folder);
    fs::create_directories(folder);
    settleEnvironment(folder / "runtime");

    const auto demo = tour::makeDemo(folder / "demo", project, build);
    const tour::Display display;
    tour::Guide guide(display, *demo, folder);
    std::size_t steps = 0;
    for (const tour::Scene& scene : tour::scenes(demo->system())) {
        std::cout << "\n" << scene.name << "\n";
        for (const tour::Step& step : scene.steps)
            guide.take(step);
        steps += scene.steps.size();
    }
    std::cout << "\nAll " << steps << " steps of the tour happened. Their pictures are in "
              << folder.string() << ".\n";
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::cerr << "tour PROJECT_FOLDER BUILD_FOLDER\n";
        return 2;
    }
    tour::adoptOrphans();
    int code = 0;
    try {
        takeTour(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::cerr << "\nThe tour ends here: " << error.what() << "\n";
        code = 1;
    }
    tour::endOrphans();
    return code;
}
