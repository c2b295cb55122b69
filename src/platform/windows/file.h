#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

struct HandleCloser {
    void operator()(void* handle) const;
};
/// Owns a system handle; may be empty.
using Handle = std::unique_ptr<void, HandleCloser>;

/// Creates the file or truncates an existing one. Throws RuntimeError.
Handle openForOutput(const std::string& path);

/// Throws RuntimeError unless the folder exists and may be entered.
void requireFolder(const std::string& path);

/// Writes the bytes. Throws RuntimeError that names `path`.
void write(const Handle& file, std::string_view bytes, const std::string& path);

/// Returns the contents of a file. Throws RuntimeError.
std::string readFile(const std::string& path);

/// Repeats a system call for up to a second while it fails because another program, such as a virus
/// scanner, has the file open. Returns the last result; GetLastError() stays that of the call.
bool retryWhileInUse(const std::function<bool()>& call);

}  // namespace platform
