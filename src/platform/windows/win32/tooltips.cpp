#include "platform/windows/win32/tooltips.h"

#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/units.h"

namespace win32 {

void Tooltips::add(std::span<ControlPeer* const> peers, const Style& style) {
    if (!tips_) {
        tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, form_, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
        restyle(style);
    }
    for (const ControlPeer* peer : peers)
        setText(peer->window(), peer->control().tooltip);
}

void Tooltips::restyle(const Style& style) const {
    constexpr int longestLine = 4800;  // in twips; longer texts are wrapped
    SendMessageW(tips_, WM_SETFONT, reinterpret_cast<WPARAM>(style.sharedFont), TRUE);
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, pixels(longestLine, style.dpi));
}

void Tooltips::setText(HWND control, const std::string& text) const {
    std::wstring shown = platform::wide(text);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = form_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = shown.data();
    SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace win32
