#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

struct HandleCloser {
    void operator()(void* handle) const;
};
/// A handle of the system that is closed with its owner; empty for none.
using Handle = std::unique_ptr<void, HandleCloser>;

/// Makes the file, or empties one that exists. Throws RuntimeError.
Handle openForOutput(const std::string& path);

/// Throws RuntimeError unless the folder is there and may be entered.
void requireFolder(const std::string& path);

/// Writes all of the bytes; the path is for the error. Throws RuntimeError.
void write(const Handle& file, std::string_view bytes, const std::string& path);

/// All bytes of a file. Throws RuntimeError.
std::string readFile(const std::string& path);

/// Repeats a call of the system for up to a second while another program, such as a virus scanner,
/// keeps the file to itself. Gives the last result; the call's error code stands.
bool insist(const std::function<bool()>& call);

}  // namespace platform
