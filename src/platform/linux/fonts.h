#pragma once

namespace platform {

/// Looks the system's fonts up, which the first text would wait for otherwise. Any thread may.
void lookUpFonts();

}  // namespace platform
