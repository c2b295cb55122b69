#pragma once

#include <gtest/gtest.h>

#include <chrono>

#include "helpers.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_runtime.h"
#include "platform/win32/windows_api.h"

/// Windows under the suite: the place is a folder among the user's temporary ones.
class System : public testing::Test {
  protected:
    using Runtime = platform::Win32Runtime;

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
    static Runtime makeRuntime(const Runtime::MessageBox& box) { return Runtime(box); }

    /// A hidden file bears an attribute here.
    static std::string hide(const fs::path& file) {
        SetFileAttributesW(file.wstring().c_str(), FILE_ATTRIBUTE_HIDDEN);
        return platform::narrow(file.filename().wstring());
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
