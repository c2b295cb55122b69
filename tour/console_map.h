#pragma once

#include <string>

#include "model.h"

namespace tour {

/// Where a control stands inside its window, in pixels.
struct Spot {
    int x;
    int y;
};

/// Knows the places of the console's controls from the console's own form.
class ConsoleMap {
  public:
    ConsoleMap() : console_(desk_.open()) {}

    /// A spot on the control, near its left edge, as if its panel were in use. The control goes by
    /// its full name, as in "optFormat(2)". Throws std::runtime_error if there is none.
    [[nodiscard]] Spot find(const std::string& control);

  private:
    model::Desk desk_;
    console::frmConsole& console_;
};

}  // namespace tour
