#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

#include "accessibility_bus.h"
#include "demo.h"

namespace tour {

/// Operates the program through the accessibility bus only, as voice control or a switch does. Acts
/// at random and compares each script, and finally the settings, with what the screen showed.
class AssistiveUser {
  public:
    AssistiveUser(const AccessibilityBus& bus, const Demo& demo, unsigned seed)
        : bus_(bus), demo_(demo), random_(seed) {}

    /// Throws std::runtime_error if a script differs from what the screen showed before.
    void work(int actions);
    /// Returns to the console and reads the screen. `checkSettings` compares the settings with it
    /// after the program has ended.
    void leave();
    void checkSettings() const;
    [[nodiscard]] int scripts() const { return scripts_; }

  private:
    using Objects = std::vector<AccessibleObject>;

    std::size_t any(std::size_t count) { return random_() % count; }
    void act(const Objects& window, const AccessibleObject& target);
    void remember(const Objects& window);
    void checkScript(const Objects& before, const std::string& script);

    const AccessibilityBus& bus_;
    const Demo& demo_;
    std::mt19937 random_;
    struct Panel {
        std::string file;
        bool hidden = false;
    };
    std::array<Panel, 4> panels_;  ///< as last read from the screen
    std::array<bool, 4> seen_{};
    int tab_ = 0;
    int scripts_ = 0;
};

}  // namespace tour
