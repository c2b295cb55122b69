#include "platform/windows/win32/control_peer.h"

#include <utility>

#include "platform/windows/wide.h"
#include "platform/windows/win32/units.h"

namespace win32 {

ControlPeer::ControlPeer(forms::Control& control, const Site& site, const WindowKind& kind)
    : control_(control),
      dpi_(site.style.dpi),
      place_(placeOf(control, dpi_)),
      enabled_(control.Enabled),
      shown_(control_.inSight()),
      window_(CreateWindowExW(
          kind.extendedStyle, kind.className, platform::wide(control.Caption()).c_str(),
          kind.style | WS_CHILD | WS_CLIPSIBLINGS | (site.startsGroup ? WS_GROUP : 0) |
              (shown_ ? WS_VISIBLE : 0) | (enabled_ ? 0 : WS_DISABLED),
          place_.left, place_.top, widthOf(place_), heightOf(place_), site.parent,
          reinterpret_cast<HMENU>(static_cast<UINT_PTR>(site.id)), GetModuleHandleW(nullptr),
          nullptr)) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowSubclass(window_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
    takeFont(site.style);
}

ControlPeer::~ControlPeer() {
    RemoveWindowSubclass(window_, procedure, 0);
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

LRESULT CALLBACK ControlPeer::procedure(HWND /*window*/, UINT message, WPARAM first, LPARAM second,
                                        UINT_PTR /*id*/, DWORD_PTR peer) noexcept {
    return reinterpret_cast<ControlPeer*>(peer)->handle(message, first, second);
}

ControlPeer* ControlPeer::of(HWND window) {
    return reinterpret_cast<ControlPeer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

ControlPeer* ControlPeer::around(HWND window, HWND form) {
    for (; window && window != form; window = GetParent(window)) {
        if (ControlPeer* peer = of(window)) return peer;
    }
    return nullptr;
}

void ControlPeer::update() {
    updateGeometry();
    if (enabled_ != control_.Enabled) {
        enabled_ = control_.Enabled;
        EnableWindow(window_, enabled_);
    }
    const bool within = std::exchange(drawing_, true);
    draw();
    drawing_ = within;
    if (shown_ != control_.inSight()) {
        shown_ = control_.inSight();
        ShowWindow(window_, shown_ ? SW_SHOWNA : SW_HIDE);
    }
}

void ControlPeer::restyle(const Style& style) {
    dpi_ = style.dpi;
    takeFont(style);
}

void ControlPeer::takeFont(const Style& style) {
    HFONT font = style.sharedFont;
    if (control_.font != forms::Font()) {
        ownFont_ = makeFont(wantedFont(control_.font, style.font, dpi_));
        font = ownFont_.get();
    }
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void ControlPeer::updateGeometry() {
    move(place());
}

RECT ControlPeer::place() const {
    return placeOf(control_, dpi_);
}

void ControlPeer::move(const RECT& place) {
    if (EqualRect(&place, &place_)) return;
    place_ = place;
    SetWindowPos(window_, nullptr, place.left, place.top, widthOf(place), heightOf(place),
                 SWP_NOACTIVATE | SWP_NOZORDER);
}

void ControlPeer::drawText(const std::string& wanted) {
    if (text() != wanted) SetWindowTextW(window_, platform::wide(wanted).c_str());
}

std::string ControlPeer::text() const {
    std::wstring text(GetWindowTextLengthW(window_), L'\0');
    text.resize(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1));
    return platform::narrow(text);
}

ControlPeer* peerOf(const forms::Control* control) {
    return control ? dynamic_cast<ControlPeer*>(control->peer()) : nullptr;
}

bool takesFocus(const forms::Control& control) {
    const auto* peer = peerOf(&control);
    return peer && GetWindowLongW(peer->window(), GWL_STYLE) & WS_TABSTOP;
}

}  // namespace win32
