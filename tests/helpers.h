#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>

#include "core/runtime.h"

namespace fs = std::filesystem;

inline std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The path in UTF-8.
inline std::string textOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// Makes a file, and the folders above it.
inline void write(const fs::path& file, const std::string& text = "") {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

/// Waits until the condition holds, for ten seconds at most.
inline void await(const std::function<bool()>& condition) {
    for (int tries = 0; tries < 1000 && !condition(); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

/// The text of the error that the operation ends in; empty if it succeeds.
inline std::string errorOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const core::RuntimeError& error) {
        return error.what();
    }
    return "";
}
