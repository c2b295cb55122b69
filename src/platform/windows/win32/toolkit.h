#pragma once

#include "forms/application.h"

namespace win32 {

/// Creates windows with the system's own controls. Only one may exist at a time, on the thread
/// whose message loop it runs.
class Win32Toolkit : public forms::Toolkit {
  public:
    Win32Toolkit();
    ~Win32Toolkit() override;
    Win32Toolkit(const Win32Toolkit&) = delete;
    Win32Toolkit& operator=(const Win32Toolkit&) = delete;

    void build(forms::Form& form) override;
    /// Throws forms::RuntimeError if the name chosen is longer than 260 characters.
    std::string chooseFile(forms::Form& owner, const forms::FileQuestion& question) override;
    void quit() override;

    /// Runs the message loop until `quit`.
    void run();
};

}  // namespace win32
