#include "docs/system_info.h"

#include "core/module1.h"

namespace docs {

using core::Runtime;

namespace {

constexpr std::uint32_t localMachine = 0x80000002;
constexpr std::uint32_t fullAccess = 0x2003F;
constexpr std::uint32_t regSz = 1;
constexpr std::uint32_t regDword = 4;

constexpr const char* pathKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr const char* folderKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr const char* programFile = "\\MSINFO32.EXE";

/// Returns the bytes as hexadecimal digits, last byte first, each byte without a leading zero.
std::string hexadecimal(const std::string& bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : std::string(bytes.rbegin(), bytes.rend())) {
        const auto value = static_cast<unsigned char>(byte);
        if (value >= 0x10) text += digits[value >> 4];
        text += digits[value & 0xF];
    }
    return text;
}

/// Returns the program's path from the first registry key that has it, or an empty string.
std::string programPath(Runtime& runtime) {
    std::string path;
    if (GetKeyValue(runtime, localMachine, pathKey, "PATH", path)) return path;
    if (!GetKeyValue(runtime, localMachine, folderKey, "MSINFO", path)) return {};
    return core::exists(runtime, path + programFile) ? path + programFile : "";
}

}  // namespace

bool GetKeyValue(Runtime& runtime, std::uint32_t KeyRoot, const std::string& KeyName,
                 const std::string& SubKeyRef, std::string& KeyVal) {
    const auto key = runtime.RegOpenKeyEx(KeyRoot, KeyName, fullAccess);
    const auto value = key ? runtime.RegQueryValueEx(*key, SubKeyRef) : std::nullopt;
    if (!value) {
        KeyVal.clear();
    } else {
        const std::string text = value->bytes.substr(0, value->bytes.find('\0'));
        if (value->type == regSz) KeyVal = text;
        if (value->type == regDword) KeyVal = "&h" + KeyVal + hexadecimal(text);
    }
    if (key) runtime.RegCloseKey(*key);
    return value.has_value();
}

void StartSysInfo(Runtime& runtime) {
    try {
        if (const std::string path = programPath(runtime); !path.empty()) {
            runtime.rtcShell(path, Runtime::normalFocus);
            return;
        }
    } catch (const core::RuntimeError&) {
        // Fall through: reported as unavailable below.
    }
    runtime.rtcMsgBox("System Information Is Unavailable At This Time", Runtime::okOnly);
}

}  // namespace docs
