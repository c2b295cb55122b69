#include "platform/windows/windows_runtime.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "core/text.h"
#include "platform/windows/script_check.h"
#include "platform/windows/shell.h"
#include "platform/windows/system_error.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

namespace platform {

namespace {

std::wstring settingsKey(const std::string& application, const std::string& section) {
    return wide("Software\\" + application + '\\' + section);
}

/// Iterates over the names that match a pattern.
class Listing {
  public:
    explicit Listing(const std::string& pattern)
        : handle_(FindFirstFileW(wide(pattern).c_str(), &found_)),
          valid_(handle_ != INVALID_HANDLE_VALUE) {}
    ~Listing() {
        if (handle_ != INVALID_HANDLE_VALUE) FindClose(handle_);
    }
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;

    [[nodiscard]] bool valid() const { return valid_; }
    void next() { valid_ = FindNextFileW(handle_, &found_) != FALSE; }
    [[nodiscard]] std::string name() const { return narrow(found_.cFileName); }
    [[nodiscard]] bool isFolder() const { return has(FILE_ATTRIBUTE_DIRECTORY); }
    [[nodiscard]] bool isHidden() const { return has(FILE_ATTRIBUTE_HIDDEN); }

  private:
    [[nodiscard]] bool has(DWORD attribute) const {
        return (found_.dwFileAttributes & attribute) != 0;
    }

    WIN32_FIND_DATAW found_ = {};
    HANDLE handle_;
    bool valid_;
};

/// True for the errors that only a path without a file gives. Every other, such as that of a server
/// or a drive that does not answer, leaves open whether the file exists.
bool meansNoFile(DWORD error) {
    constexpr DWORD errors[] = {ERROR_FILE_NOT_FOUND,       ERROR_PATH_NOT_FOUND,
                                ERROR_INVALID_NAME,         ERROR_BAD_PATHNAME,
                                ERROR_FILENAME_EXCED_RANGE, ERROR_DIRECTORY};
    return std::ranges::find(errors, error) != std::end(errors);
}

}  // namespace

WindowsRuntime::WindowsRuntime(MessageBox messageBox) : CommonRuntime(std::move(messageBox)) {
    // A drive without a disk must fail the operation, not bring up a system box.
    SetErrorMode(SEM_FAILCRITICALERRORS);
}

std::string WindowsRuntime::AppPath() {
    const std::string program = textFrom(
        [](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); });
    return std::string(core::beforeLast(program, '\\'));
}

std::string WindowsRuntime::TempPath() {
    const std::string folder =
        textFrom([](wchar_t* buffer, DWORD size) { return GetTempPathW(size, buffer); });
    return std::string(core::beforeLast(folder, '\\'));
}

std::string WindowsRuntime::rtcDir(const std::string& path) {
    // The last three are further wildcards of Windows.
    if (path.find_first_of("*?<>\"") != std::string::npos) return "";
    const Listing found(path);
    if (!found.valid() && !meansNoFile(GetLastError())) fail("look up", path);
    return found.valid() && !found.isFolder() && !found.isHidden() ? found.name() : "";
}

std::chrono::system_clock::time_point WindowsRuntime::rtcFileDateTime(const std::string& path) {
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
    constexpr Ticks from1601To1970(116'444'736'000'000'000);
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (GetFileAttributesExW(wide(path).c_str(), GetFileExInfoStandard, &data) == FALSE) {
        fail("find", path);
    }
    const FILETIME& changed = data.ftLastWriteTime;
    const Ticks since1601(static_cast<std::int64_t>(changed.dwHighDateTime) << 32 |
                          changed.dwLowDateTime);
    return std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(since1601 -
                                                                        from1601To1970));
}

std::string WindowsRuntime::readFile(const std::string& path) {
    return readText(path);
}

void WindowsRuntime::openOutput(const std::string& path) {
    output_ = openForOutput(path);
}

void WindowsRuntime::writeOutput(const std::string& text) {
    printed_ += text;
}

void WindowsRuntime::closeOutput() {
    if (!output_) return;
    writeOut();
    output_.reset();
}

void WindowsRuntime::writeOut() {
    Handle file = std::move(output_);
    write(file, textBytes(std::exchange(printed_, "")), outputPath());
    output_ = std::move(file);
}

void WindowsRuntime::vbaFileFlush() {
    if (!output_) return;
    writeOut();
    if (FlushFileBuffers(output_.get()) == FALSE) fail("write", outputPath());
}

void WindowsRuntime::rtcKillFiles(const std::string& path) {
    // While another program has the file open, as a virus scanner does, a deleted file keeps its
    // name. Renaming it first frees the name for the file that is to follow.
    const std::wstring file = wide(path);
    const std::wstring aside = file + L'~' + std::to_wstring(GetTickCount64());
    const auto rename = [&] { return MoveFileW(file.c_str(), aside.c_str()) != FALSE; };
    if (!retryWhileInUse(rename)) fail("delete", path);
    if (DeleteFileW(aside.c_str()) != FALSE) return;
    const DWORD error = GetLastError();
    MoveFileW(aside.c_str(), file.c_str());
    fail("delete", path, error);
}

void WindowsRuntime::vbaNameFile(const std::string& from, const std::string& to) {
    const bool renamed = retryWhileInUse([&] {
        return MoveFileExW(wide(from).c_str(), wide(to).c_str(), MOVEFILE_WRITE_THROUGH) != FALSE;
    });
    if (!renamed) fail("rename " + from + " to", to);
}

void WindowsRuntime::rtcShell(const std::string& command, int windowStyle) {
    startCommand(command, windowStyle == maximisedFocus);
}

std::string WindowsRuntime::rtcGetSetting(const std::string& application,
                                          const std::string& section, const std::string& key,
                                          const std::string& byDefault) {
    const std::wstring place = settingsKey(application, section);
    const std::wstring name = wide(key);
    const auto read = [&](void* value, DWORD& size) {
        return RegGetValueW(HKEY_CURRENT_USER, place.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                            value, &size) == ERROR_SUCCESS;
    };
    DWORD size = 0;
    if (!read(nullptr, size)) return byDefault;
    std::wstring value(size / sizeof(wchar_t), L'\0');
    if (!read(value.data(), size)) return byDefault;
    return narrow(value.c_str());
}

void WindowsRuntime::rtcSaveSetting(const std::string& application, const std::string& section,
                                    const std::string& key, const std::string& value) {
    const std::wstring text = wide(value);
    const LSTATUS result = RegSetKeyValueW(
        HKEY_CURRENT_USER, settingsKey(application, section).c_str(), wide(key).c_str(), REG_SZ,
        text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    if (result != ERROR_SUCCESS) fail("store", key, static_cast<DWORD>(result));
}

std::string WindowsRuntime::GetShortPathName(const std::string& path) {
    return textFrom([name = wide(path)](wchar_t* buffer, DWORD size) {
        return GetShortPathNameW(name.c_str(), buffer, size);
    });
}

std::vector<std::string> WindowsRuntime::drives() {
    std::vector<std::string> names;
    const DWORD present = GetLogicalDrives();
    for (char letter = 'a'; letter <= 'z'; ++letter)
        if ((present >> (letter - 'a') & 1) != 0) names.push_back({letter, ':'});
    return names;
}

std::string WindowsRuntime::currentFolder() {
    return textFrom([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); });
}

std::vector<std::string> WindowsRuntime::folders(const std::string& path) {
    std::vector<std::string> names;
    Listing entry(path + (path.ends_with('\\') ? "*" : "\\*"));
    // The root of an empty drive has no entries at all.
    if (!entry.valid() && GetLastError() != ERROR_FILE_NOT_FOUND) fail("open", path);
    for (; entry.valid(); entry.next()) {
        const std::string name = entry.name();
        if (entry.isFolder() && !entry.isHidden() && name != "." && name != "..")
            names.push_back(name);
    }
    return names;
}

std::optional<core::Runtime::RegistryKey> WindowsRuntime::RegOpenKeyEx(std::uint32_t root,
                                                                       const std::string& name,
                                                                       std::uint32_t access) {
    // Windows defines the roots as 32-bit numbers and extends them with their sign.
    const auto parent =
        reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<std::int32_t>(root)));
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, wide(name).c_str(), 0, access, &key) != ERROR_SUCCESS) return {};
    return reinterpret_cast<RegistryKey>(key);
}

std::optional<core::Runtime::RegistryValue> WindowsRuntime::RegQueryValueEx(
    RegistryKey key, const std::string& name) {
    constexpr std::size_t maxBytes = 1024;
    RegistryValue value{0, std::string(maxBytes * sizeof(wchar_t), '\0')};
    DWORD type = 0;
    DWORD size = static_cast<DWORD>(value.bytes.size());
    if (RegQueryValueExW(reinterpret_cast<HKEY>(key), wide(name).c_str(), nullptr, &type,
                         reinterpret_cast<BYTE*>(value.bytes.data()), &size) != ERROR_SUCCESS) {
        return {};
    }
    value.type = type;
    value.bytes.resize(size);
    if (type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ) {
        std::wstring text(size / sizeof(wchar_t), L'\0');
        std::memcpy(text.data(), value.bytes.data(), text.size() * sizeof(wchar_t));
        value.bytes = narrow(text);
    }
    if (value.bytes.size() > maxBytes) return {};
    return value;
}

void WindowsRuntime::RegCloseKey(RegistryKey key) {
    ::RegCloseKey(reinterpret_cast<HKEY>(key));
}

}  // namespace platform
