#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <thread>
#include <vector>

#include "core/text.h"
#include "helpers.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_runtime.h"
// After <windows.h>, which it needs.
#include <tlhelp32.h>

/// Windows for the suite: `place` is a temporary folder.
class System : public testing::Test {
  protected:
    using Runtime = platform::WindowsRuntime;

    System() {
        fs::create_directories(place);
        fs::current_path(place);
        // A code page of the user's for consoles, which ours need not begin with.
        const DWORD codePage = 65001;
        RegSetKeyValueW(HKEY_CURRENT_USER, L"Console", L"CodePage", REG_DWORD, &codePage,
                        sizeof codePage);
    }
    ~System() override {
        fs::current_path(place.parent_path());
        std::error_code stillInUse;
        for (int tries = 0; tries < 50 && (fs::exists(place) || consoles() > 0); ++tries) {
            fs::remove_all(place, stillInUse);
            Sleep(20);
        }
        EXPECT_FALSE(fs::exists(place)) << "nothing is held open or read-only";
        EXPECT_EQ(consoles(), 0) << "none waits for a command";
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvane Workbench Tests");
        RegDeleteKeyValueW(HKEY_CURRENT_USER, L"Console", L"CodePage");
    }
    /// Returns how many command interpreters run that this program has started.
    static int consoles() {
        PROCESSENTRY32W process{};
        process.dwSize = sizeof process;
        const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        int found = 0;
        for (BOOL more = Process32FirstW(all, &process); more; more = Process32NextW(all, &process))
            found += process.th32ParentProcessID == GetCurrentProcessId() &&
                     lstrcmpiW(process.szExeFile, L"cmd.exe") == 0;
        CloseHandle(all);
        return found;
    }
    static void setVariable(const char* name, const fs::path& value) {
        SetEnvironmentVariableW(platform::wide(name).c_str(), value.wstring().c_str());
    }
    /// Sets the search path to the folder and to entries that must be ignored, as must the variable
    /// for the interpreter.
    static void setSearchPath(const fs::path& folder) {
        static bool slashes = false;  // in turn
        slashes = !slashes;
        std::wstring folders = L".;;" + folder.root_name().wstring() + L".;\"" +
                               (slashes ? folder.generic_wstring() : folder.wstring()) + L'"';
        while (folders.size() < 300)
            folders = L"c:\\none;" + folders;
        setVariable("PATH", folders);
        setVariable("ComSpec", folder / "none.exe");
    }
    static Runtime makeRuntime(const Runtime::MessageBox& box) { return Runtime(box); }

    /// Hides the file by its attribute.
    static std::string hide(const fs::path& file) {
        SetFileAttributesW(file.wstring().c_str(), FILE_ATTRIBUTE_HIDDEN);
        return platform::narrow(file.filename().wstring());
    }
    /// Keeps the file open for a moment, as a virus scanner does.
    static std::jthread hold(const fs::path& file, bool mayBeDeleted) {
        void* handle =
            CreateFileW(file.wstring().c_str(), GENERIC_READ, mayBeDeleted ? FILE_SHARE_DELETE : 0,
                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        return std::jthread([handle] {
            Sleep(300);
            CloseHandle(handle);
        });
    }
    /// A path that is the whole command needs no quotes, and Windows drops dots at its end.
    static std::string commandOf(const fs::path& program) {
        return platform::narrow(program.wstring()) + '.';
    }
    /// What the echo child tells of a start by the command interpreter.
    static constexpr const char* byScript = "guarded ";
    static constexpr const char* maximised = "maximised ";  ///< what it tells of its window
    static constexpr const char* bareName = "tool";  ///< of the echo child on the search path
    static constexpr const char* settingsKey = "Software\\Norvane Workbench Tests\\Settings";

    // Some names contain characters that are special to the command interpreter.
    static inline const std::string ordinaryNames[] = {
        "été",   "a;ed", "$(ed)", "`ed`",  "$HOME", "-rf",  "--help", "[a]",
        "{a,b}", "~",    "a'b",   "a=b,c", "a!b",   "a)(b", "#x",     "exit"};
    static inline const std::map<std::string, std::string> refusedNames = {
        {"a&ed", "&"}, {"a^b", "^"}, {"%PATH%", "%"}, {"100%", "%"}};
    static fs::path pathOf(const std::string& name) { return platform::wide(name); }
    static std::string asTyped(Runtime&, const fs::path& file) {
        return platform::narrow(file.wstring());
    }
    /// Returns the names of the game that the compiler and Notepad get, without extension.
    static std::pair<std::string, std::string> wordsFor(const fs::path& game) {
        const std::string stem = platform::narrow(game.filename().wstring());
        return {stem, stem};
    }

    /// The bytes of texts in a file. The system's code page is a Western one where the suite runs;
    /// a text that lacks a character there, or would be taken for UTF-8, is in UTF-8.
    static inline const std::map<std::string, std::string> texts = {
        {"märchen", "m\xe4rchen"}, {"łódź", "łódź"}, {"mÃ¤rchen", "mÃ¤rchen"}};

    const fs::path place =
        fs::temp_directory_path() /
        platform::wide("nwbw-tést-" +
                       std::to_string(std::chrono::system_clock::now().time_since_epoch().count()));
    const std::string folder = platform::narrow(place.wstring());
};
