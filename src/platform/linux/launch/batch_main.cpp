// Runs a batch script in a terminal: nwbw-batch SCRIPT FOLDER PREFIX, all of them host paths. The
// script starts in the folder, with the drives of the Wine prefix. Both are arguments because a
// terminal that was already open may start this program with another current folder and
// environment.

#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>

#include "core/runtime.h"
#include "platform/linux/launch/batch_interpreter.h"
#include "platform/linux/launch/search_path.h"

namespace {

bool runScript(const char* path, const char* prefix) try {
    // Read completely before running: the workbench may rewrite the script meanwhile.
    const std::string script = platform::readBatch(platform::HostPath(path));
    platform::WindowsDisk disk{platform::Drives(platform::HostPath(prefix))};
    using platform::BatchInterpreter;
    const auto titles =
        isatty(STDOUT_FILENO) != 0 ? BatchInterpreter::Titles::Yes : BatchInterpreter::Titles::No;
    return BatchInterpreter(disk, std::cin, std::cout, titles).run(script);
} catch (const core::RuntimeError& error) {
    std::cout << error.what() << std::endl;
    return false;
}

bool enterFolder(const char* folder) {
    if (chdir(folder) == 0) return true;
    std::cout << "Cannot change to " << folder << ": " << std::strerror(errno) << std::endl;
    return false;
}

}  // namespace

int main(int count, char* arguments[]) {
    platform::ignoreRelativeBaseFolders();
    if (count != 4) {
        std::cerr << "Usage: nwbw-batch SCRIPT FOLDER PREFIX" << std::endl;
        return 2;
    }
    termios settings = {};
    const bool hasTerminal = tcgetattr(STDIN_FILENO, &settings) == 0;
    if (enterFolder(arguments[2]) && runScript(arguments[1], arguments[3])) return 0;
    if (!hasTerminal) return 1;
    // A tool that was killed may leave its terminal settings and unread keys behind.
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings);
    std::cout << "Press Enter to close this window . . . " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return 0;  // the user has seen the error
}
