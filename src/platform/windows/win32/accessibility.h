#pragma once

#include <string>

#include "platform/windows/windows_api.h"

namespace win32 {

/// The name of a window for screen readers, where it is not the caption. It lasts as long as this
/// object, which must not outlive the window.
class AccessibleName {
  public:
    AccessibleName(HWND window, const std::string& name);
    ~AccessibleName();
    AccessibleName(const AccessibleName&) = delete;
    AccessibleName& operator=(const AccessibleName&) = delete;

  private:
    HWND window_;
};

}  // namespace win32
