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

/// Returns the contents of a text file in UTF-8. Throws RuntimeError.
std::string readText(const std::string& path);
/// Returns the bytes of a whole text in a file: in the system's ANSI code page or, if that lacks a
/// character or if readText would take the bytes for UTF-8, in UTF-8.
std::string textBytes(const std::string& text);

/// Repeats a system call for up to a second while it fails because another program, such as a virus
/// scanner, has the file open. Returns the last result; GetLastError() stays that of the call.
bool retryWhileInUse(const std::function<bool()>& call);

}  // namespace platform
