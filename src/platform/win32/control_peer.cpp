#include "platform/win32/control_peer.h"

#include "platform/win32/units.h"
#include "platform/win32/wide.h"

namespace win32 {

namespace {

constexpr const wchar_t* peerProperty = L"NorvanePeer";

bool asksForNothing(const forms::Font& font) {
    return font.family.empty() && font.points == 0 && !font.italic;
}

}  // namespace

ControlPeer::ControlPeer(forms::Control& control, HWND parent, const WindowKind& kind)
    : control_(control),
      window_(CreateWindowExW(kind.extendedStyle, kind.className, L"",
                              kind.style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
    SetPropW(window_, peerProperty, this);
}

ControlPeer::~ControlPeer() {
    RemovePropW(window_, peerProperty);
}

ControlPeer* ControlPeer::of(HWND window) {
    return static_cast<ControlPeer*>(GetPropW(window, peerProperty));
}

void ControlPeer::update() {
    lay();
    EnableWindow(window_, control_.Enabled);
    draw();
    // What was moved out of its container is out of sight for a screen reader as well.
    const bool shown = control_.Visible && control_.Left + control_.Width > 0;
    ShowWindow(window_, shown ? SW_SHOWNA : SW_HIDE);
}

void ControlPeer::setFont(const LOGFONTW& formFont, HFONT shared) {
    if (!asksForNothing(control_.font)) {
        ownFont_ = makeFont(wantedFont(control_.font, formFont, dpiOf(window_)));
        shared = ownFont_.get();
    }
    send(WM_SETFONT, reinterpret_cast<WPARAM>(shared), TRUE);
}

void ControlPeer::lay() {
    move(place());
}

RECT ControlPeer::place() const {
    return placeOf(control_, dpiOf(window_));
}

void ControlPeer::move(const RECT& place, HWND behind) {
    SetWindowPos(window_, behind, place.left, place.top, widthOf(place), heightOf(place),
                 SWP_NOACTIVATE | (behind ? 0 : SWP_NOZORDER));
}

void ControlPeer::drawText(const std::string& wanted) {
    if (text() != wanted) SetWindowTextW(window_, platform::wide(wanted).c_str());
}

std::string ControlPeer::text() const {
    std::wstring text(GetWindowTextLengthW(window_), L'\0');
    text.resize(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1));
    return platform::narrow(text);
}

}  // namespace win32
