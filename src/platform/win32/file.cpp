#include "platform/win32/file.h"

#include <array>

#include "platform/win32/system_error.h"
#include "platform/win32/wide.h"
#include "platform/win32/windows_api.h"

namespace platform {

static Handle openFile(const std::string& path, DWORD access, DWORD sharing, DWORD creation) {
    void* handle = CreateFileW(wide(path).c_str(), access, sharing, nullptr, creation,
                               FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) fail("open", path);
    return Handle(handle);
}

void HandleCloser::operator()(void* handle) const {
    CloseHandle(handle);
}

Handle openForOutput(const std::string& path) {
    return openFile(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS);
}

std::string readFile(const std::string& path) {
    const Handle file = openFile(
        path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
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
    return text;
}

}  // namespace platform
