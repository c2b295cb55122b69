#pragma once

#include <string>

#include "platform/windows/win32/gdi.h"

namespace win32 {

/// Returns a picture from the program's resources, an icon or a PNG file, in the given size in
/// pixels; empty if there is none of the name.
Icon loadPicture(const std::string& name, int width, int height);

}  // namespace win32
