#include "platform/windows/shell.h"

#include <algorithm>

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
    return textFrom([](wchar_t* buffer, DWORD size) { return GetSystemDirectoryW(buffer, size); });
}

std::string variable(const wchar_t* name) {
    return textFrom([name](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(name, buffer, size);
    });
}

/// Gives an environment variable, and the programs started meanwhile, another value.
class TemporaryVariable {
  public:
    TemporaryVariable(const wchar_t* name, const std::string& value)
        : name_(name), before_(variable(name)) {
        SetEnvironmentVariableW(name, wide(value).c_str());
    }
    ~TemporaryVariable() {
        SetEnvironmentVariableW(name_, before_.empty() ? nullptr : wide(before_).c_str());
    }
    TemporaryVariable(const TemporaryVariable&) = delete;
    TemporaryVariable& operator=(const TemporaryVariable&) = delete;

  private:
    const wchar_t* name_;
    std::string before_;
};

/// Returns the search path without its relative folders.
std::string safeSearchPath() {
    std::string folders = variable(L"PATH");
    std::erase(folders, '"');
    std::string safe;
    for (std::string_view rest = folders; !rest.empty();) {
        const std::string folder(rest.substr(0, rest.find(';')));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        if (isAbsolute(folder)) safe += folder + ';';
    }
    return safe;
}

/// Returns the path of a program that is given without one.
std::string findProgram(const std::string& name) {
    const std::wstring folders = wide(systemFolder() + ';' + safeSearchPath());
    std::string path = textFrom([&, file = wide(name)](wchar_t* buffer, DWORD size) {
        return SearchPathW(folders.c_str(), file.c_str(), L".exe", size, buffer, nullptr);
    });
    if (path.empty()) fail("start", name);
    return path;
}

/// Returns the path as Windows opens it: absolute, and without dots and blanks at its end.
std::string fullPath(const std::string& path) {
    return textFrom([file = wide(path)](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(file.c_str(), size, buffer, nullptr);
    });
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

/// Writes the script in one code page, and returns the command that switches the console to it. It
/// is the system's OEM code page, which tools expect, or UTF-8 if that lacks a character. The
/// console may begin with another one, which the user can set in several places. Returns an empty
/// string for a script in ASCII.
std::string encode(const std::string& script, const std::string& text) {
    if (std::ranges::all_of(text, [](char c) { return c >= 0; })) return "";
    const auto inOem = inCodePage(text, GetOEMCP());
    write(openForOutput(script), inOem.value_or(text), script);
    return core::quoted(systemFolder() + "\\chcp.com") + ' ' +
           std::to_string(inOem ? GetOEMCP() : utf8) + " >nul & ";
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
/// code page. Keeps it from starting a program in a game's folder instead of the system's. If the
/// interpreter cannot go on in a script of our own, it does not reach "exit", and its window stays.
void startScript(const std::string& script, const std::string& arguments, bool maximised) {
    const std::string command = core::quoted(script) + arguments;
    checkLine(command);
    std::string before;
    std::string folder;
    if (arguments.empty()) {
        const std::string text = readText(script);
        folder = folderOfScript(text);
        if (wide(fullPath(folder)).size() >= MAX_PATH)
            fail("go to", folder, ERROR_FILENAME_EXCED_RANGE);
        if (!folder.empty()) requireFolder(folder);
        before = encode(script, text);
    }
    // Start in the folder of the "cd" line, so that no tool runs elsewhere even if that line fails.
    // A relative folder needs the current one.
    if (!folder.substr(core::drivePart(folder).size()).starts_with('\\')) folder.clear();
    const std::string interpreter = systemFolder() + "\\cmd.exe";
    const TemporaryVariable path(L"PATH", safeSearchPath());
    const TemporaryVariable notHere(L"NoDefaultCurrentDirectoryInExePath", "1");
    const std::string line = arguments.empty() ? "/k " + core::quoted(before + command + " & exit")
                                               : "/c " + core::quoted(command);
    start(interpreter, core::quoted(interpreter) + " /d /e:on /v:off /s " + line, folder,
          maximised);
}

}  // namespace

void startCommand(const std::string& text, bool maximised) {
    auto [program, arguments] = Command(text);
    if (program.empty()) throw core::Refusal("Cannot start a program: none is named.");
    const bool isName = program.find_first_of("\\/:") == std::string::npos;
    program = isName ? findProgram(program) : fullPath(program);
    if (isScript(program)) {
        startScript(program, arguments, maximised);
    } else {
        start(program, core::quoted(program) + arguments, "", maximised);
    }
}

}  // namespace platform
