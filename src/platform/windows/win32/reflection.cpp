#include "platform/windows/win32/reflection.h"

#include "platform/windows/win32/background.h"
#include "platform/windows/win32/control_peer.h"

namespace win32 {

namespace {

HWND asWindow(LPARAM parameter) {
    return reinterpret_cast<HWND>(parameter);
}

/// Sets the colours of a control that shows its container's background, and returns the brush.
std::optional<LRESULT> colours(HDC device, HWND window, COLORREF background) {
    const ControlPeer* peer = ControlPeer::of(window);
    if (!peer || !peer->transparent()) return {};
    const bool onWindow = background == GetSysColor(COLOR_WINDOW);
    SetTextColor(device, GetSysColor(onWindow ? COLOR_WINDOWTEXT : COLOR_BTNTEXT));
    SetBkColor(device, background);
    return reinterpret_cast<LRESULT>(brush(device, background));
}

}  // namespace

std::optional<LRESULT> reflect(UINT message, WPARAM first, LPARAM second, COLORREF background) {
    switch (message) {
        case WM_COMMAND:
            if (auto* peer = ControlPeer::of(asWindow(second))) {
                peer->command(HIWORD(first));
                return 0;
            }
            return {};
        case WM_NOTIFY: {
            const auto& notification = *reinterpret_cast<const NMHDR*>(second);
            if (auto* peer = ControlPeer::of(notification.hwndFrom)) peer->notify(notification);
            return {};
        }
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
            if (auto* peer = ControlPeer::of(item.hwndItem)) peer->drawItem(item);
            return TRUE;
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return colours(reinterpret_cast<HDC>(first), asWindow(second), background);
        default:
            return {};
    }
}

}  // namespace win32
