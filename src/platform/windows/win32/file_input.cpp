#include "platform/windows/win32/file_input.h"

#include <shellapi.h>

#include <memory>

#include "forms/drop.h"
#include "platform/windows/wide.h"
#include "platform/windows/win32/control_peer.h"

namespace win32 {

namespace {

struct DropCloser {
    void operator()(HDROP dropped) const { DragFinish(dropped); }
};

/// Returns the innermost visible window at a point of the window.
HWND windowAt(HWND window, POINT point) {
    for (;;) {
        const HWND inside = ChildWindowFromPointEx(window, point, CWP_SKIPINVISIBLE);
        if (!inside || inside == window) return window;
        MapWindowPoints(window, inside, &point, 1);
        window = inside;
    }
}

}  // namespace

void takeDrop(forms::Form& form, HWND window, WPARAM parameter) {
    const auto dropped = reinterpret_cast<HDROP>(parameter);
    const std::unique_ptr<std::remove_pointer_t<HDROP>, DropCloser> closer(dropped);
    constexpr UINT howMany = 0xffffffff;
    POINT point;
    DragQueryPoint(dropped, &point);
    const auto* peer = ControlPeer::around(windowAt(window, point), window);
    forms::TextBox* box = forms::dropTarget(peer ? peer->control() : form);
    if (!box || DragQueryFileW(dropped, howMany, nullptr, 0) != 1) return;
    std::wstring path(DragQueryFileW(dropped, 0, nullptr, 0), L'\0');
    DragQueryFileW(dropped, 0, path.data(), static_cast<UINT>(path.size()) + 1);
    SetForegroundWindow(window);
    box->type(platform::narrow(path));
}

}  // namespace win32
