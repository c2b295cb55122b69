#pragma once

#include <cstdint>
#include <string>

#include "core/runtime.h"

namespace docs {

/// Starts the system's own System Information program, or shows a message if there is none.
void StartSysInfo(core::Runtime& runtime);

/// Reads a registry value into KeyVal: a text as it is; a number as the hexadecimal digits of its
/// bytes, appended to KeyVal and prefixed with "&h". Other types leave KeyVal unchanged. If the
/// value cannot be read, returns false with KeyVal empty.
bool GetKeyValue(core::Runtime& runtime, std::uint32_t KeyRoot, const std::string& KeyName,
                 const std::string& SubKeyRef, std::string& KeyVal);

}  // namespace docs
