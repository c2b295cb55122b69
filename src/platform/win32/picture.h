#pragma once

#include <string>

#include "platform/win32/drawing.h"

namespace win32 {

/// The picture of the name in the program's resources, an icon or a PNG file, in the size given;
/// empty if there is none.
Icon loadPicture(const std::string& name, int width, int height);

}  // namespace win32
