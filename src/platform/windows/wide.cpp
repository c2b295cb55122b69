#include "platform/windows/wide.h"

#include "platform/windows/windows_api.h"

namespace platform {

std::wstring wide(std::string_view text, unsigned codePage) {
    const int size = static_cast<int>(text.size());
    std::wstring result(MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), size, result.data(),
                        static_cast<int>(result.size()));
    return result;
}

std::string narrow(std::wstring_view text, unsigned codePage) {
    const int size = static_cast<int>(text.size());
    std::string result(
        WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), size, result.data(),
                        static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

std::optional<std::string> inCodePage(const std::string& text, unsigned codePage) {
    const std::wstring characters = wide(text);
    std::string bytes = narrow(characters, codePage);
    if (wide(bytes, codePage) != characters) return {};  // a character was replaced by another
    return bytes;
}

}  // namespace platform
