#include "platform/win32/shell.h"

#include <algorithm>

#include "core/runtime.h"
#include "core/text.h"
#include "platform/win32/file.h"
#include "platform/win32/system_error.h"
#include "platform/win32/wide.h"
#include "platform/win32/windows_api.h"

namespace platform {

namespace {

/// The program that a command begins with, without its quotes.
std::string programOf(const std::string& command) {
    if (!command.starts_with('"')) return command.substr(0, command.find(' '));
    return command.substr(1, command.find('"', 1) - 1);
}

bool isScript(const std::string& program) {
    constexpr int extension = 4;
    const std::wstring name = wide(program);
    const std::wstring end = name.substr(name.size() < extension ? 0 : name.size() - extension);
    return lstrcmpiW(end.c_str(), L".bat") == 0 || lstrcmpiW(end.c_str(), L".cmd") == 0;
}

/// The path, quoted, of a program that comes with the system.
std::string ofSystem(const std::string& program) {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
    return core::quoted(narrow(folder) + '\\' + program);
}

/// Has the interpreter run the script. It reads one in the code page of its console, which stays
/// the user's own unless the script needs another.
std::string interpreted(const std::string& script, const std::string& command) {
    const std::string text = readFile(script);
    const bool isPlain =
        std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
    const std::string before =
        isPlain ? "" : ofSystem("chcp.com") + ' ' + std::to_string(utf8) + " >nul & ";
    return ofSystem("cmd.exe") + " /s /c " + core::quoted(before + command);
}

void start(const std::string& program, const std::string& command, bool maximised) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    PROCESS_INFORMATION process = {};
    std::wstring line = wide(command);
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr,
                       nullptr, &startup, &process) == FALSE) {
        fail("start", program);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

}  // namespace

void startCommand(const std::string& command, bool maximised) {
    const std::string program = programOf(command);
    if (program.empty()) throw core::RuntimeError("Cannot start a program: none is named.");
    start(program, isScript(program) ? interpreted(program, command) : command, maximised);
}

}  // namespace platform
