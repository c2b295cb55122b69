#pragma once

#include <functional>

#include "forms/control.h"

namespace forms {

/// Whether the window of a control takes the focus of the keyboard by tabbing.
using TakesFocus = std::function<bool(const Control&)>;

/// The first control inside the container, in order of tabbing, that is usable and takes the
/// focus; null if there is none.
Control* firstFocus(const Container& container, const TakesFocus& takesFocus);

/// Where the focus goes from a control that has gone out of use: into the container that is in
/// use beside its own, if that went as well, and else on in order of tabbing; null if there is
/// nothing.
Control* focusAfter(Control& gone, const TakesFocus& takesFocus);

}  // namespace forms
