#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

/// What the random walks share: their length, their choices, and the memory in use.
namespace endurance {

/// Returns the number in the environment variable, or else `brief`.
inline int setting(const char* variable, int brief) {
    const char* wanted = std::getenv(variable);
    return wanted ? std::stoi(wanted) : brief;
}

/// The source of random choices.
struct Choices {
    std::size_t any(std::size_t count) { return random() % count; }
    const std::string& anyName() { return names[any(names.size())]; }

    static inline const std::vector<std::string> names{"",
                                                       "cave.kcd",
                                                       "d:\\tool.exe",
                                                       "d:quest.kelm",
                                                       "a,b\"c.log",
                                                       "much too long.kel",
                                                       "c:\\games\\cave.kel",
                                                       "c:\\my.dir\\games\\",
                                                       "\\my.dir\\game"};
    const int seed = setting("NWBW_SEED", 1);
    std::mt19937 random{static_cast<unsigned>(seed)};
};

/// Returns the bytes in use on the heap; 0 where the system or a sanitizer hides them.
inline std::size_t heapInUse() {
#if defined(__GLIBC__)
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
#else
    return 0;
#endif
}

}  // namespace endurance
