#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace fuzz {

/// Ends the run, and so keeps the input, where a property does not hold.
inline void check(bool holds, std::string_view property) {
    if (holds) return;
    std::fprintf(stderr, "\nBroken: %.*s\n", static_cast<int>(property.size()), property.data());
    std::abort();
}

/// Takes the first byte off the input, to choose by; 0 if there is none.
inline unsigned choice(std::string_view& input) {
    if (input.empty()) return 0;
    const auto byte = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    return byte;
}

/// The pieces of a text between the marks.
template <typename Take>
void forEachPiece(std::string_view text, char mark, Take take) {
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, text.find(mark));
        text.remove_prefix(std::min(piece.size() + 1, text.size()));
        take(piece);
    }
}

}  // namespace fuzz
