#pragma once

namespace platform {

/// Looks up the system's fonts, which the first text would otherwise wait for. Thread-safe.
void lookUpFonts();

}  // namespace platform
