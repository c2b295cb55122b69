#pragma once

#include <string>

namespace platform {

/// Throws RuntimeError "Cannot DOING PATH: TEXT" with the system's text for an error code, by
/// default that of the last call that failed on this thread.
[[noreturn]] void fail(const std::string& doing, const std::string& path);
[[noreturn]] void fail(const std::string& doing, const std::string& path, unsigned long error);

}  // namespace platform
