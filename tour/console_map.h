#pragma once

#include <string>

#include "console/frm_console.h"
#include "platform/stubs/stubs.h"

namespace tour {

/// A point in a window, in pixels.
struct Spot {
    int x;
    int y;
};

/// Finds the console's controls from its form.
class ConsoleMap {
  public:
    /// Returns a point on the control, near its left edge, as if its panel were selected, in a
    /// window as wide as given, in pixels: Windows lays out forms larger where texts need it.
    /// `control` is its full name, as in "optFormat(2)". Throws std::runtime_error if there is none.
    [[nodiscard]] Spot find(const std::string& control, int windowWidth);

  private:
    stubs::StubRuntime runtime_;
    stubs::StubToolkit toolkit_;
    forms::Application application_{toolkit_, [](const std::string&) {}};
    core::Program program_{runtime_};
    console::frmConsole console_{application_, program_};
};

}  // namespace tour
