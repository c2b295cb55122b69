#include "platform/windows/win32/toolkit.h"

#include <objbase.h>

#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/file_dialog.h"
#include "platform/windows/win32/form_window.h"

namespace win32 {

Win32Toolkit::Win32Toolkit() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const INITCOMMONCONTROLSEX kinds{sizeof kinds,
                                     ICC_STANDARD_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&kinds);
}

Win32Toolkit::~Win32Toolkit() {
    CoUninitialize();
}

void Win32Toolkit::build(forms::Form& form) {
    form.attachWindow(std::make_unique<FormWindow>(form));
}

std::string Win32Toolkit::chooseFile(forms::Form& owner, const forms::FileQuestion& question) {
    return win32::chooseFile(dynamic_cast<FormWindow&>(*owner.window()).window(), question);
}

void Win32Toolkit::quit() {
    PostQuitMessage(0);
}

void Win32Toolkit::run() {
    runLoop([] { return true; });
}

}  // namespace win32
