#pragma once

#include "forms/controls.h"

namespace forms {

/// Picks the text box that receives a file dropped on the control or the form: the control itself
/// if it holds a path, otherwise the only usable such box in the nearest container that has any.
/// Null if there is none or the choice is ambiguous. The caller passes the file's Windows path to
/// `type`.
TextBox* dropTarget(Control& control);

}  // namespace forms
