#pragma once

#include "forms/controls.h"

namespace forms {

/// Picks the text box whose text a file becomes that is dropped on the control, or on the form:
/// the control itself if it holds a path, otherwise the only such box in use in the nearest
/// container that has any. Null if there is none, or a choice of several. The caller hands the
/// file's Windows path to the box's `type`.
TextBox* dropTarget(Control& control);

}  // namespace forms
