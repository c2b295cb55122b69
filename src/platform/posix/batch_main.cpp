// Runs a batch script in a terminal: nwbw-batch SCRIPT FOLDER PREFIX, all paths of the host. The
// script starts in the folder, with the drives of the Wine prefix. Neither can come from the
// process or its environment, which may be those of a terminal that has been open before.

#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/posix/batch_interpreter.h"

namespace {

bool runScript(const char* path, const char* prefix) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cout << "Cannot read the script " << path << ": " << std::strerror(errno) << std::endl;
        return false;
    }
    // Read as a whole, since the script may be written anew while this run lasts.
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    platform::WindowsDisk disk{platform::Drives(prefix)};
    using platform::BatchInterpreter;
    const auto titles =
        isatty(STDOUT_FILENO) != 0 ? BatchInterpreter::Titles::Yes : BatchInterpreter::Titles::No;
    return BatchInterpreter(disk, std::cin, std::cout, titles).run(script);
}

bool enterFolder(const char* folder) {
    if (chdir(folder) == 0) return true;
    std::cout << "Cannot change to " << folder << ": " << std::strerror(errno) << std::endl;
    return false;
}

}  // namespace

int main(int count, char* arguments[]) {
    if (count != 4) {
        std::cerr << "Usage: nwbw-batch SCRIPT FOLDER PREFIX" << std::endl;
        return 2;
    }
    termios settings = {};
    const bool hasReader = tcgetattr(STDIN_FILENO, &settings) == 0;
    if (enterFolder(arguments[2]) && runScript(arguments[1], arguments[3])) return 0;
    if (!hasReader) return 1;
    // A tool that was cut off leaves its own settings behind, and keys that were meant for it.
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings);
    std::cout << "Press Enter to close this window . . . " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return 0;  // the reader has seen it
}
