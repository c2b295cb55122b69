// Runs a batch script in a terminal: nwbw-batch SCRIPT [FOLDER]. Both are paths of the host; the
// script starts in the folder, which not every terminal takes over from who started it.

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/linux/batch_interpreter.h"

namespace {

bool runScript(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cout << "Cannot read the script " << path << ": " << std::strerror(errno) << std::endl;
        return false;
    }
    // Read as a whole, since the script may be written anew while this run lasts.
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    platform::WindowsDisk disk(platform::Drives::ofUser());
    return platform::BatchInterpreter(disk, std::cin, std::cout).run(script);
}

bool enterFolder(const char* folder) {
    if (chdir(folder) == 0) return true;
    std::cout << "Cannot change to " << folder << ": " << std::strerror(errno) << std::endl;
    return false;
}

void waitForReader() {
    if (isatty(STDIN_FILENO) == 0) return;
    std::cout << "Press Enter to close this window . . . " << std::flush;
    std::string line;
    std::getline(std::cin, line);
}

}  // namespace

int main(int count, char* arguments[]) {
    if (count < 2 || count > 3) {
        std::cerr << "Usage: nwbw-batch SCRIPT [FOLDER]" << std::endl;
        return 2;
    }
    if ((count == 2 || enterFolder(arguments[2])) && runScript(arguments[1])) return 0;
    waitForReader();
    return 1;
}
