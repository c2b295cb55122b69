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

/// Waits for the thing; false if it does not happen in 20 seconds.
bool happens(const std::function<bool()>& thing);

/// Goes through the steps: does what the user does, waits for what must happen, and leaves a
/// picture of each step.
class Guide {
  public:
    /// Pictures go to the folder, numbered. Starts the program.
    Guide(const Display& display, const Demo& demo, std::filesystem::path pictures);

    /// Throws std::runtime_error if the step does not happen in time.
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
    void operator()(const Left& left);
    void operator()(const End& end);

  private:
    using Lines = std::vector<std::string>;

    /// Brings the window that the user works to the front, and tells where it stands.
    Window toFront() const;
    void picture(const std::string& what);
    /// Waits until the lines are as expected, and shows them; `what` names them in a failure.
    static void expect(const std::string& what, const Lines& expected,
                       const std::function<Lines()>& found);

    const Display& display_;
    const Demo& demo_;
    std::filesystem::path pictures_;
    ConsoleMap map_;
    std::unique_ptr<Child> program_;
    unsigned long window_ = 0;  ///< the one that the user works
    int taken_ = 0;
};

}  // namespace tour
