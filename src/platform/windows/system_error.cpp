#include "platform/windows/system_error.h"

#include "core/common_runtime.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

namespace platform {

/// Returns the system's text in the user's language, with the path in place of "%1" and without
/// the line end.
static std::string textOf(DWORD error, const std::string& path) {
    wchar_t text[512];
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text, static_cast<DWORD>(std::size(text)), nullptr);
    if (length == 0) return "error " + std::to_string(error);
    const std::wstring_view whole(text, length);
    std::string description = narrow(whole.substr(0, whole.find_last_not_of(L"\r\n ") + 1));
    const std::string_view insert = "%1";
    if (const std::size_t at = description.find(insert); at != std::string::npos)
        description.replace(at, insert.size(), path);
    return description;
}

void fail(const std::string& doing, const std::string& path) {
    fail(doing, path, GetLastError());
}

void fail(const std::string& doing, const std::string& path, unsigned long error) {
    core::failTo(doing, path, textOf(error, path));
}

}  // namespace platform
