#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <thread>

#include "core/text.h"
#include "helpers.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_runtime.h"

/// Windows under the suite: the place is a folder among the user's temporary ones.
class System : public testing::Test {
  protected:
    using Runtime = platform::WindowsRuntime;

    System() {
        fs::create_directories(place);
        fs::current_path(place);
    }
    ~System() override {
        fs::current_path(place.parent_path());
        std::error_code stillInUse;
        for (int tries = 0; tries < 50 && fs::exists(place); ++tries) {
            fs::remove_all(place, stillInUse);
            Sleep(20);
        }
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvane Workbench Tests");
    }
    static void setVariable(const char* name, const fs::path& value) {
        SetEnvironmentVariableW(platform::wide(name).c_str(), value.wstring().c_str());
    }
    /// Sets the search path to the folder, and others that must not count.
    static void setSearchPath(const fs::path& folder) {
        setVariable("PATH", L".;;games;\"" + folder.wstring() + L'"');
    }
    static Runtime makeRuntime(const Runtime::MessageBox& box) { return Runtime(box); }

    /// A hidden file bears an attribute here.
    static std::string hide(const fs::path& file) {
        SetFileAttributesW(file.wstring().c_str(), FILE_ATTRIBUTE_HIDDEN);
        return platform::narrow(file.filename().wstring());
    }
    /// Keeps the file from all others for a moment, as a virus scanner does.
    static std::jthread hold(const fs::path& file) {
        void* handle = CreateFileW(file.wstring().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr);
        return std::jthread([handle] {
            Sleep(300);
            CloseHandle(handle);
        });
    }
    /// A path that stands for the whole command needs no quotes here.
    static std::string commandOf(const fs::path& program) {
        return platform::narrow(program.wstring());
    }

    // Some names of games hold what the interpreter takes for a command.
    static inline const std::string ordinaryNames[] = {
        "été", "a;ed", "$(ed)", "`ed`", "$HOME", "-rf", "--help", "[a]",         "{a,b}",
        "~",   "a'b",  "a=b,c", "a!b",  "a)(b",  "#x",  "exit",   "pause x & ed"};
    static inline const std::map<std::string, std::string> refusedNames = {
        {"a&ed", "&"}, {"a^b", "^"}, {"%PATH%", "%"}, {"100%", "%"}};
    static fs::path pathOf(const std::string& name) { return platform::wide(name); }
    static std::string asTyped(Runtime&, const fs::path& file) {
        return platform::narrow(file.wstring());
    }
    /// How the compiler is given the game, and Notepad, but for the extension: the long name in
    /// its short form.
    static std::pair<std::string, std::string> wordsFor(Runtime& runtime, const fs::path& game) {
        std::string stem = platform::narrow(game.filename().wstring());
        if (core::length(stem) > 8) {
            stem = core::afterLast(
                runtime.GetShortPathName(platform::narrow(game.wstring() + L".kel")), '\\');
            stem = core::beforeLast(stem, '.');
        }
        return {stem, stem};
    }

    /// A file that is not UTF-8 is taken to be in the code page of the system's language, which
    /// is a Western one where the suite runs.
    static constexpr const char* oldText = "märchen";

    const fs::path place =
        fs::temp_directory_path() /
        ("nwbw-test-" +
         std::to_string(std::chrono::system_clock::now().time_since_epoch().count()));
    const std::string folder = platform::narrow(place.wstring());
};
