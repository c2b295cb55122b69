#include "platform/windows/win32/message_box.h"

#include "platform/windows/wide.h"
#include "platform/windows/win32/form_window.h"

namespace win32 {

namespace {

/// Returns the window that the user works in: the active one or, while another program is active,
/// the uppermost form that takes input.
HWND windowInUse() {
    if (const HWND active = GetActiveWindow()) return active;
    HWND uppermost = nullptr;
    const auto choose = [](HWND window, LPARAM chosen) -> BOOL {
        const bool isForm = FormWindow::of(window) != nullptr;  // and no tooltip
        if (!isForm || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
        *reinterpret_cast<HWND*>(chosen) = window;
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), choose, reinterpret_cast<LPARAM>(&uppermost));
    return uppermost;
}

}  // namespace

core::Runtime::Answer messageBox(const std::string& text, int flags, const std::string& title) {
    using core::Runtime;
    if (FormWindow::sessionEnds()) return Runtime::Answer::No;
    static_assert(Runtime::okOnly == MB_OK && Runtime::yesNo == MB_YESNO &&
                  Runtime::exclamation == MB_ICONEXCLAMATION);
    switch (MessageBoxW(windowInUse(), platform::wide(text).c_str(), platform::wide(title).c_str(),
                        static_cast<UINT>(flags))) {
        case IDYES:
            return Runtime::Answer::Yes;
        case IDNO:
            return Runtime::Answer::No;
        default:
            return Runtime::Answer::Ok;
    }
}

}  // namespace win32
