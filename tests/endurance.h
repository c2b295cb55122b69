#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

/// What the random walks share: their length and their choices.
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

}  // namespace endurance
