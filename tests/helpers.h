#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>

#include "core/runtime.h"

namespace fs = std::filesystem;

inline std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Returns the path in UTF-8.
inline std::string textOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// Creates a file anew, since a program that still runs cannot be written, and its folders.
inline void write(const fs::path& file, const std::string& text = "") {
    fs::create_directories(file.parent_path());
    fs::remove(file);
    std::ofstream(file, std::ios::binary) << text;
}

/// Waits until the condition holds; throws with `what` it waited for after a minute.
inline void await(const std::string& what, const std::function<bool()>& condition) {
    for (int tries = 0; !condition(); ++tries) {
        if (tries == 6000) throw std::runtime_error("waited in vain for " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

/// Returns the text of the operation's RuntimeError, or an empty string.
inline std::string errorOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const core::RuntimeError& error) {
        return error.what();
    }
    return "";
}
