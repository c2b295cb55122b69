#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

#include "accessibility_bus.h"
#include "demo.h"

namespace tour {

/// Works the program through the accessibility bus alone, as a voice or a switch does: acts at
/// random, and holds each script and at the end the settings against what the screen showed.
class Hand {
  public:
    Hand(const AccessibilityBus& bus, const Demo& demo, unsigned seed)
        : bus_(bus), demo_(demo), random_(seed) {}

    /// Throws std::runtime_error if a script differs from the screen before it was written.
    void work(int actions);
    /// Reads the screen, back on the console. `checkSettings` holds the settings against it, once
    /// the program has ended.
    void leave();
    void checkSettings() const;
    [[nodiscard]] int scripts() const { return scripts_; }

  private:
    using Objects = std::vector<Spoken>;

    std::size_t any(std::size_t count) { return random_() % count; }
    void act(const Objects& window, const Spoken& target);
    void remember(const Objects& window);
    void checkScript(const Objects& before, const std::string& script);

    const AccessibilityBus& bus_;
    const Demo& demo_;
    std::mt19937 random_;
    struct Panel {
        std::string file;
        bool hidden = false;
    };
    std::array<Panel, 4> panels_;  ///< as last seen on the screen
    std::array<bool, 4> seen_{};
    int tab_ = 0;
    int scripts_ = 0;
};

}  // namespace tour
