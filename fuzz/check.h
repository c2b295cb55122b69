#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace fuzz {

/// Aborts the run if a property does not hold, so that the input is kept.
inline void check(bool holds, std::string_view property) {
    if (holds) return;
    std::fprintf(stderr, "\nBroken: %.*s\n", static_cast<int>(property.size()), property.data());
    std::abort();
}

/// Removes and returns the first byte of the input, or 0 if it is empty.
inline unsigned choice(std::string_view& input) {
    if (input.empty()) return 0;
    const auto byte = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    return byte;
}

/// Passes on the pieces of the text between the marks.
template <typename Take>
void forEachPiece(std::string_view text, char mark, Take take) {
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, text.find(mark));
        text.remove_prefix(std::min(piece.size() + 1, text.size()));
        take(piece);
    }
}

}  // namespace fuzz
