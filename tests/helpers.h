#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "core/runtime.h"

namespace fs = std::filesystem;

inline std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Makes a file, and the folders above it.
inline void write(const fs::path& file, const std::string& text = "") {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
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
