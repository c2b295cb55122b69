#include "platform/windows/shell.h"

#include <algorithm>
#include <cwchar>

#include "core/runtime.h"
#include "core/text.h"
#include "platform/windows/file.h"
#include "platform/windows/script_check.h"
#include "platform/windows/system_error.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

namespace platform {

namespace {

/// True if the path depends neither on the current folder nor on the current drive.
bool isAbsolute(const std::string& path) {
    const auto isSlash = [](char c) { return c == '\\' || c == '/'; };
    return path.starts_with("\\\\") || (path.size() > 2 && path[1] == ':' && isSlash(path[2]));
}

bool isFile(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(wide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::string systemFolder() {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
    return narrow(folder);
}

/// Returns the search path without its relative folders.
std::string safeSearchPath() {
    std::wstring variable(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    variable.resize(
        GetEnvironmentVariableW(L"PATH", variable.data(), static_cast<DWORD>(variable.size())));
    std::string folders = narrow(variable);
    std::erase(folders, '"');
    std::string safe;
    for (std::string_view rest = folders; !rest.empty();) {
        const std::string folder(rest.substr(0, rest.find(';')));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        if (isAbsolute(folder)) safe += folder + ';';
    }
    return safe;
}

/// Keeps this process and its children from starting a program in a game's folder instead of the
/// system's.
void guardSearchPath(const std::string& folders) {
    SetEnvironmentVariableW(L"PATH", wide(folders).c_str());
    SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");
}

/// Returns the path of a program that is given without one.
std::string findProgram(const std::string& name, const std::string& folders) {
    std::wstring path(32768, L'\0');
    const DWORD length =
        SearchPathW(wide(systemFolder() + ';' + folders).c_str(), wide(name).c_str(), L".exe",
                    static_cast<DWORD>(path.size()), path.data(), nullptr);
    if (length == 0) fail("start", name);
    path.resize(length);
    return narrow(path);
}

/// A command split into its program, without quotes, and everything after it.
struct Command {
    explicit Command(const std::string& text) {
        if (isAbsolute(text) && isFile(text)) {
            program = text;
            return;
        }
        const bool isQuoted = text.starts_with('"');
        const std::size_t end = isQuoted ? text.find('"', 1) : text.find(' ');
        program = text.substr(isQuoted ? 1 : 0, isQuoted ? end - 1 : end);
        if (end != std::string::npos) arguments = text.substr(isQuoted ? end + 1 : end);
    }

    std::string program;
    std::string arguments;  ///< with the leading blank
};

bool isScript(const std::string& program) {
    constexpr int extension = 4;
    const std::wstring name = wide(program);
    const std::wstring end = name.substr(name.size() < extension ? 0 : name.size() - extension);
    return lstrcmpiW(end.c_str(), L".bat") == 0 || lstrcmpiW(end.c_str(), L".cmd") == 0;
}

/// Returns the code page of a new console, in which the interpreter reads scripts.
unsigned consoleCodePage() {
    DWORD chosen = 0;
    DWORD size = sizeof(chosen);
    if (RegGetValueW(HKEY_CURRENT_USER, L"Console", L"CodePage", RRF_RT_REG_DWORD, nullptr, &chosen,
                     &size) == ERROR_SUCCESS) {
        return chosen;
    }
    // Not GetOEMCP(), which is UTF-8 in this process.
    wchar_t number[16] = {};
    size = sizeof(number);
    RegGetValueW(HKEY_LOCAL_MACHINE, LR"(SYSTEM\CurrentControlSet\Control\Nls\CodePage)", L"OEMCP",
                 RRF_RT_REG_SZ, nullptr, number, &size);
    return std::wcstoul(number, nullptr, 10);
}

/// Rewrites the script in the code page of the interpreter. If that lacks a character, leaves the
/// script in UTF-8 and returns the command that first switches the console to it; otherwise returns
/// an empty string.
std::string encode(const std::string& script, const std::string& text) {
    const std::wstring characters = wide(text);
    const unsigned codePage = consoleCodePage();
    const std::string bytes = narrow(characters, codePage);
    // The conversion replaces a missing character by a similar one.
    if (bytes.empty() || wide(bytes, codePage) != characters)
        return core::quoted(systemFolder() + "\\chcp.com") + ' ' + std::to_string(utf8) +
               " >nul & ";
    if (bytes != text) write(openForOutput(script), bytes, script);
    return "";
}

/// Starts the program with a command line, in the given folder or, if that is empty, in the current
/// one.
void start(const std::string& program, const std::string& command, const std::string& folder,
           bool maximised) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    PROCESS_INFORMATION process = {};
    std::wstring line = wide(command);
    if (CreateProcessW(wide(program).c_str(), line.data(), nullptr, nullptr, FALSE,
                       CREATE_NEW_CONSOLE | CREATE_DEFAULT_ERROR_MODE, nullptr,
                       folder.empty() ? nullptr : wide(folder).c_str(), &startup,
                       &process) == FALSE) {
        fail("start", program);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

/// Has the interpreter run the script, without the user's AutoRun commands, which may change the
/// code page.
void startScript(const std::string& script, const std::string& arguments, bool maximised) {
    const std::string command = core::quoted(script) + arguments;
    checkLine(command);
    std::string before;
    std::string folder;
    if (arguments.empty()) {
        const std::string text = readText(script);
        folder = folderOfScript(text);
        if (GetFullPathNameW(wide(folder).c_str(), 0, nullptr, nullptr) > MAX_PATH)
            fail("go to", folder, ERROR_FILENAME_EXCED_RANGE);
        if (!folder.empty()) requireFolder(folder);
        before = encode(script, text);
    }
    // Start in the folder of the "cd" line, so that no tool runs elsewhere even if that line fails.
    // A relative folder needs the current one.
    if (!folder.substr(core::drivePart(folder).size()).starts_with('\\')) folder.clear();
    const std::string interpreter = systemFolder() + "\\cmd.exe";
    start(interpreter,
          core::quoted(interpreter) + " /d /e:on /v:off /s /c " + core::quoted(before + command),
          folder, maximised);
}

}  // namespace

void startCommand(const std::string& text, bool maximised) {
    auto [program, arguments] = Command(text);
    if (program.empty()) throw core::RuntimeError("Cannot start a program: none is named.");
    const std::string folders = safeSearchPath();
    guardSearchPath(folders);
    if (program.find_first_of("\\/:") == std::string::npos) program = findProgram(program, folders);
    if (isScript(program)) {
        startScript(program, arguments, maximised);
    } else {
        start(program, core::quoted(program) + arguments, "", maximised);
    }
}

}  // namespace platform
