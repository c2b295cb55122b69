// Appends a line to the file named by NWBW_ECHO: the current folder, the arguments, and the
// standard input unless it is a terminal. On Windows the line starts with "guarded " if the
// variable is set that keeps the command interpreter from starting programs of the current folder,
// and with "maximised " if its window is to be.

#include <cstdlib>
#include <iostream>

#include "helpers.h"

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

#ifdef _WIN32
int wmain(int count, wchar_t* words[]) {
    const bool isKeyboard = _isatty(0) != 0;
    std::string echo = std::getenv("NoDefaultCurrentDirectoryInExePath") ? "guarded " : "";
    STARTUPINFOW startup;
    GetStartupInfoW(&startup);
    if (startup.dwFlags & STARTF_USESHOWWINDOW && startup.wShowWindow == SW_SHOWMAXIMIZED)
        echo += "maximised ";
#else
int main(int count, char* words[]) {
    const bool isKeyboard = isatty(0) != 0;
    std::string echo;
#endif
    echo += textOf(fs::current_path());
    for (int i = 1; i < count; ++i)
        echo += '[' + textOf(words[i]) + ']';
    if (!isKeyboard) echo += std::string(std::istreambuf_iterator<char>(std::cin), {});
    std::ofstream(std::getenv("NWBW_ECHO"), std::ios::app | std::ios::binary) << echo + '\n';
    return 0;
}
