#pragma once

#include <functional>

#include "forms/control.h"

namespace forms {

/// True if the control's window takes the keyboard focus by Tab.
using TakesFocus = std::function<bool(const Control&)>;

/// Returns the first control in the container, in tab order, that is usable and takes the focus, or
/// null.
Control* firstFocus(const Control& container, const TakesFocus& takesFocus);

/// Picks the next focus when `gone` becomes unusable: the first focusable control of a usable
/// sibling container if its own became unusable too, otherwise the next in tab order, or null.
Control* focusAfter(Control& gone, const TakesFocus& takesFocus);

}  // namespace forms
