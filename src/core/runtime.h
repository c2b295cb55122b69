#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "forms/application.h"
#include "forms/disk.h"

namespace core {

using forms::RuntimeError;

/// All that the program asks of its platform. Texts are UTF-8, paths are Windows paths. An
/// operation that fails throws RuntimeError with the system's own text. One thread calls.
class Runtime : public forms::Disk {
  public:
    enum class OpenMode { Input, Output };
    enum class Answer { Ok, Yes, No };

    /// Flags of rtcMsgBox: an OK button; the buttons Yes and No; an OK button and the
    /// exclamation icon.
    static constexpr int okOnly = 0;
    static constexpr int yesNo = 4;
    static constexpr int exclamation = 48;

    /// Styles of rtcShell: a window of normal size or a maximised one, both with the focus.
    static constexpr int normalFocus = 1;
    static constexpr int maximisedFocus = 3;

    /// A value of the registry, read into at most 1024 bytes.
    struct RegistryValue {
        std::uint32_t type;
        std::string bytes;
    };
    using RegistryKey = std::uintptr_t;

    /// The folder of the program, without a backslash at its end.
    virtual std::string AppPath() = 0;
    /// A folder of the user's own for files that need not stay, without a backslash at its end.
    virtual std::string TempPath() = 0;

    /// The name of the ordinary file that the path names; empty if there is none, and for a
    /// folder, a hidden file, an empty path and one with "*" or "?".
    virtual std::string rtcDir(const std::string& path) = 0;
    /// When the file was last changed.
    virtual std::chrono::system_clock::time_point rtcFileDateTime(const std::string& path) = 0;

    /// Opens the one file that the other file operations work on. For output a file that exists
    /// is emptied and one that does not is made. A file still open is closed first.
    virtual void vbaFileOpen(const std::string& path, OpenMode mode) = 0;
    virtual void vbaFileClose() = 0;
    /// Reads the next field: its leading blanks skipped, ended by a comma or the end of its line,
    /// or held in double quotes. Empty behind the end of the file.
    virtual std::string vbaInputFile() = 0;
    /// True when no character is left to read.
    virtual bool rtcEndOfFile() = 0;
    /// Writes the text and one CRLF.
    virtual void vbaPrintFile(const std::string& text) = 0;
    /// Brings what was printed to the disk itself.
    virtual void vbaFileFlush() = 0;
    virtual void rtcKillFiles(const std::string& path) = 0;
    /// Renames a file; the new name must not exist.
    virtual void vbaNameFile(const std::string& from, const std::string& to) = 0;

    /// Shows a modal box and waits. An empty title stands for the application's.
    virtual Answer rtcMsgBox(const std::string& text, int flags, const std::string& title = "") = 0;

    /// Starts a quoted program or batch file with its arguments, or a name that is found on the
    /// search path, and returns at once.
    virtual void rtcShell(const std::string& command, int windowStyle) = 0;

    /// The user's stored text for the key, or the default.
    virtual std::string rtcGetSetting(const std::string& application, const std::string& section,
                                      const std::string& key, const std::string& byDefault) = 0;
    virtual void rtcSaveSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& value) = 0;

    /// The path with the short form of every part; empty if it names nothing that exists.
    virtual std::string GetShortPathName(const std::string& path) = 0;

    /// Opens a key of the registry below the root; nothing if it does not exist, may not be opened
    /// with the access asked for, or the system has no registry.
    virtual std::optional<RegistryKey> RegOpenKeyEx(std::uint32_t root, const std::string& name,
                                                    std::uint32_t access) = 0;
    /// Reads a value of an open key; nothing if it cannot be read or is longer than 1024 bytes.
    virtual std::optional<RegistryValue> RegQueryValueEx(RegistryKey key,
                                                         const std::string& name) = 0;
    virtual void RegCloseKey(RegistryKey key) = 0;
};

}  // namespace core
