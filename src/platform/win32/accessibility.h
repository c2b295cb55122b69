#pragma once

#include <string>

#include "platform/windows/windows_api.h"

namespace win32 {

/// The name of a window for screen readers, where its caption does not tell it. It is told for as
/// long as this lives, and must not outlive the window.
class SpokenName {
  public:
    SpokenName(HWND window, const std::string& name);
    ~SpokenName();
    SpokenName(const SpokenName&) = delete;
    SpokenName& operator=(const SpokenName&) = delete;

  private:
    HWND window_;
};

}  // namespace win32
