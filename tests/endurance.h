#pragma once

#include <cstdlib>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

/// How long a random walk goes on, and whether the program's memory grows on the way.
namespace endurance {

/// The number that the environment variable holds, else that of a brief run.
inline int setting(const char* variable, int brief) {
    const char* wanted = std::getenv(variable);
    return wanted ? std::stoi(wanted) : brief;
}

/// The bytes now in use on the heap; 0 where the system does not tell.
inline std::size_t heapInUse() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
#else
    return 0;
#endif
}

}  // namespace endurance
