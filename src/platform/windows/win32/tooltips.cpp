#include "platform/windows/win32/tooltips.h"

#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/units.h"

namespace win32 {

void addTooltips(HWND window, std::span<ControlPeer* const> peers) {
    const HWND tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, window,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
    // Longer texts are wrapped.
    SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, pixels(4800, dpiOf(window)));
    for (const ControlPeer* peer : peers) {
        if (peer->control().tooltip.empty()) continue;
        std::wstring text = platform::wide(peer->control().tooltip);
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = window;
        tool.uId = reinterpret_cast<UINT_PTR>(peer->window());
        tool.lpszText = text.data();
        SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

}  // namespace win32
