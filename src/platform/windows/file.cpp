#include "platform/windows/file.h"

#include <array>

#include "platform/windows/system_error.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

namespace platform {

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Handle openFile(const std::string& path, DWORD access, DWORD sharing, DWORD creation) {
    void* handle = INVALID_HANDLE_VALUE;
    const bool opened = retryWhileInUse([&] {
        handle = CreateFileW(wide(path).c_str(), access, sharing, nullptr, creation,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
        return handle != INVALID_HANDLE_VALUE;
    });
    if (!opened) fail("open", path);
    return Handle(handle);
}

/// Returns the text of a file in UTF-8. Bytes that are no UTF-8 are in the ANSI code page.
std::string decoded(const std::string& bytes) {
    const bool isUtf8 = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                            static_cast<int>(bytes.size()), nullptr, 0) != 0;
    return isUtf8 ? bytes : narrow(wide(bytes, GetACP()));
}

}  // namespace

void HandleCloser::operator()(void* handle) const {
    CloseHandle(handle);
}

Handle openForOutput(const std::string& path) {
    return openFile(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS);
}

void requireFolder(const std::string& path) {
    // A drive alone is the path of a folder only with the dot.
    const std::wstring folder = wide(path + '.');
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        fail("go to", path, ERROR_DIRECTORY);
    void* opened = CreateFileW(folder.c_str(), FILE_TRAVERSE, shareAll, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) fail("go to", path);
    CloseHandle(opened);
}

void write(const Handle& file, std::string_view bytes, const std::string& path) {
    DWORD written = 0;
    if (WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ==
        FALSE) {
        fail("write", path);
    }
}

std::string readText(const std::string& path) {
    const Handle file = openFile(path, GENERIC_READ, shareAll, OPEN_EXISTING);
    std::string text;
    std::array<char, 4096> part;
    DWORD count = 0;
    do {
        if (ReadFile(file.get(), part.data(), static_cast<DWORD>(part.size()), &count, nullptr) ==
            FALSE) {
            fail("read", path);
        }
        text.append(part.data(), count);
    } while (count > 0);
    return decoded(text);
}

std::string textBytes(const std::string& text) {
    const auto bytes = inCodePage(text, GetACP());
    return bytes && decoded(*bytes) == text ? *bytes : text;
}

bool retryWhileInUse(const std::function<bool()>& call) {
    constexpr DWORD patience = 1000;
    constexpr DWORD pause = 50;
    for (DWORD waited = 0;; waited += pause) {
        if (call()) return true;
        if (GetLastError() != ERROR_SHARING_VIOLATION || waited >= patience) return false;
        Sleep(pause);
    }
}

}  // namespace platform
