#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "demo.h"
#include "display.h"

namespace tour {

using Texts = std::vector<std::string>;

/// A call of a practice program in the folder of the games. Paths are long ones on drive c.
struct Call {
    std::string program;
    Texts arguments;
    Texts input = {};
};

/// Acts as the user, in the window that appeared last, and waits for what must happen. Each step is
/// printed and throws std::runtime_error if it does not succeed within 20 seconds. Numbered
/// screenshots of them go to a folder.
class Guide {
  public:
    /// Spawns the program.
    Guide(const Display& display, const Demo& demo, std::filesystem::path pictures);

    /// Presses keys, one after the other: "Alt+G K".
    void press(const std::string& keys);
    void type(const std::string& text);
    /// Replaces the text of the focused box.
    void retype(const std::string& text);
    /// Clicks a control of the console, given by its full name.
    void click(const std::string& control);
    /// Closes the window as its close box does.
    void close();

    /// A window with the title appears, other than the current one, and becomes the current window.
    void appears(const std::string& title);
    void vanishes();
    /// No window with the title is visible.
    void absent(const std::string& title);
    void called(const Call& call);
    void holds(const std::string& file, const std::string& text);
    /// The program has exited by itself, successfully.
    void ends();

  private:
    void take(const std::string& what, const std::function<void()>& step);
    /// Raises the current window and returns its position.
    Window toFront() const;
    /// Waits until the lines are as expected and prints them.
    void expect(const std::string& what, const Texts& expected,
                const std::function<Texts()>& found);

    const Display& display_;
    const Demo& demo_;
    std::filesystem::path pictures_;
    std::unique_ptr<Child> program_;
    unsigned long window_ = 0;  ///< the current one
    int taken_ = 0;
};

/// Takes the whole tour, from the program's start to its end.
void takeTour(Guide& guide, const System& system);

}  // namespace tour
