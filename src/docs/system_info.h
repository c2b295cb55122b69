#pragma once

#include <cstdint>
#include <string>

#include "core/runtime.h"

namespace docs {

/// Starts the system's own System Information program, or says that there is none.
void StartSysInfo(core::Runtime& runtime);

/// Reads a value of the registry into KeyVal: a text as it stands; a number as the hexadecimal
/// digits of its bytes, added to what KeyVal holds, with "&h" before. Other types leave KeyVal
/// alone. False, with KeyVal empty, if the value cannot be read.
bool GetKeyValue(core::Runtime& runtime, std::uint32_t KeyRoot, const std::string& KeyName,
                 const std::string& SubKeyRef, std::string& KeyVal);

}  // namespace docs
