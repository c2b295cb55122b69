#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console_map.h"
#include "demo.h"
#include "display.h"
#include "steps.h"

namespace tour {

/// Waits until the condition holds; false if it does not within 20 seconds.
bool happens(const std::function<bool()>& condition);

/// Executes the steps: acts as the user, waits for the expected result, and takes a screenshot of
/// each step.
class Guide {
  public:
    /// Spawns the program. Numbered screenshots go to the folder.
    Guide(const Display& display, const Demo& demo, std::filesystem::path pictures);

    /// Throws std::runtime_error if the step does not complete in time.
    void take(const Step& step);

    void operator()(const Press& press);
    void operator()(const Type& type);
    void operator()(const Click& click);
    void operator()(const Close& close);
    void operator()(const Appear& appear);
    void operator()(const Vanish& vanish);
    void operator()(const Absent& absent);
    void operator()(const Script& script);
    void operator()(const Call& call);
    void operator()(const FileHolds& held);
    void operator()(const End& end);

  private:
    using Lines = std::vector<std::string>;

    /// Raises the window that the user works in and returns its position.
    Window toFront() const;
    void picture(const std::string& what);
    /// Waits until the lines are as expected and prints them; `what` names them on failure.
    static void expect(const std::string& what, const Lines& expected,
                       const std::function<Lines()>& found);

    const Display& display_;
    const Demo& demo_;
    std::filesystem::path pictures_;
    ConsoleMap map_;
    std::unique_ptr<Child> program_;
    unsigned long window_ = 0;  ///< the one that the user works in
    int taken_ = 0;
};

}  // namespace tour
