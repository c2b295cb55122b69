#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "forms/disk.h"
#include "forms/runtime_error.h"

namespace core {

using forms::Refusal;
using forms::RuntimeError;

/// Everything that the program needs from its platform. Strings are UTF-8, paths are Windows paths.
/// An operation that fails throws RuntimeError with the system's own text. Not thread-safe.
///
/// To add an operation:
/// 1. Declare it here, with what it returns, units and errors.
/// 2. Implement it in platform/linux, platform/windows and, doing nothing, platform/stubs.
/// 3. Fake it in the FakeRuntime of the tests, counted as a step that can fail if it can fail.
/// 4. Check it in tests/platform_suite.cpp, which runs on the real systems.
class Runtime : public forms::Disk {
  public:
    enum class OpenMode { Input, Output };
    enum class Answer { Ok, Yes, No };

    /// Flags of rtcMsgBox: an OK button; Yes and No buttons; an OK button with the exclamation
    /// icon.
    static constexpr int okOnly = 0;
    static constexpr int yesNo = 4;
    static constexpr int exclamation = 48;

    /// Styles of rtcShell: a focused window, of normal size or maximised.
    static constexpr int normalFocus = 1;
    static constexpr int maximisedFocus = 3;

    /// A registry value of at most 1024 bytes.
    struct RegistryValue {
        std::uint32_t type;
        std::string bytes;
    };
    using RegistryKey = std::uintptr_t;

    /// Returns the program's folder, without a trailing backslash.
    virtual std::string AppPath() = 0;
    /// Returns the user's folder for temporary files, without a trailing backslash.
    virtual std::string TempPath() = 0;

    /// Returns the name of the ordinary file at the path, or an empty string: if there is none, for
    /// a folder or a hidden file, and for a path that is empty or contains "*" or "?".
    virtual std::string rtcDir(const std::string& path) = 0;
    /// Returns the time of the file's last modification.
    virtual std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) = 0;

    /// Opens the file that the other file operations work on; there is one at a time, and a file
    /// still open is closed first. Output creates the file, or replaces it when closed.
    virtual void vbaFileOpen(const std::string& path, OpenMode mode) = 0;
    virtual void vbaFileClose() = 0;
    /// Reads the next field: without leading blanks, up to a comma or the end of its line, or
    /// between double quotes. Returns an empty string at end of file.
    virtual std::string vbaInputFile() = 0;
    /// True at end of file.
    virtual bool rtcEndOfFile() = 0;
    /// Prints the text and a CRLF. They reach the file when it is flushed or closed.
    virtual void vbaPrintFile(const std::string& text) = 0;
    /// Flushes the printed text to the disk, so that it survives a power loss.
    virtual void vbaFileFlush() = 0;
    virtual void rtcKillFiles(const std::string& path) = 0;
    /// Renames a file. Fails if the new name exists.
    virtual void vbaNameFile(const std::string& from, const std::string& to) = 0;

    /// Shows a modal message box and returns the button pressed. An empty title means the
    /// application's.
    ///
    /// To add a message:
    /// 1. Let its text name what is missing or wrong: the tool, the file or the terminal. The style
    ///    `exclamation` is for failed operations.
    /// 2. Explain it in the messages of pages/default.htm, with <var> for what varies. The tests'
    ///    FakeRuntime refuses a message that the page does not explain, except errors of the
    ///    system.
    /// 3. Expect it in the test of the form or panel that shows it.
    virtual Answer rtcMsgBox(const std::string& text, int flags, const std::string& title = "") = 0;

    /// Spawns a program or batch file, given by a quoted path or by a name on the search path and
    /// followed by its arguments. Returns at once.
    virtual void rtcShell(const std::string& command, int windowStyle) = 0;

    /// Returns the user's stored value for the key, or the default.
    virtual std::string rtcGetSetting(const std::string& application, const std::string& section,
                                      const std::string& key, const std::string& byDefault) = 0;
    /// Stores a value. It may reach the disk only when the program ends.
    virtual void rtcSaveSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& value) = 0;

    /// Returns the path with the short form of every part, or an empty string if it does not exist.
    virtual std::string GetShortPathName(const std::string& path) = 0;

    /// Opens a registry key below the root. Returns nullopt if it does not exist, if the access is
    /// denied, or if the system has no registry.
    virtual std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t root, const std::string& name,
                                                    std::uint32_t access) = 0;
    /// Reads a value of an open key. Returns nullopt if it cannot be read or exceeds 1024 bytes.
    virtual std::optional<RegistryValue> RegQueryValueEx(RegistryKey key,
                                                         const std::string& name) = 0;
    virtual void RegCloseKey(RegistryKey key) = 0;
};

}  // namespace core
