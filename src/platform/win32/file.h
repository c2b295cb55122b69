#pragma once

#include <memory>
#include <string>

namespace platform {

struct HandleCloser {
    void operator()(void* handle) const;
};
/// A handle of the system that is closed with its owner; empty for none.
using Handle = std::unique_ptr<void, HandleCloser>;

/// Makes the file, or empties one that exists. Throws RuntimeError.
Handle openForOutput(const std::string& path);

/// All bytes of a file. Throws RuntimeError.
std::string readFile(const std::string& path);

}  // namespace platform
