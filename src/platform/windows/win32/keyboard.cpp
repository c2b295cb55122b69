#include "platform/windows/win32/keyboard.h"

#include "forms/focus.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/form_window.h"

namespace win32 {

namespace {

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

int shiftState() {
    return (isDown(VK_SHIFT) ? forms::shiftMask : 0) | (isDown(VK_CONTROL) ? forms::ctrlMask : 0) |
           (isDown(VK_MENU) ? forms::altMask : 0);
}

}  // namespace

bool Keyboard::take(MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return keyDown(message);
        case WM_CHAR:
            return !keyPress(message.wParam);
        case WM_SYSCHAR:
            return mnemonic(static_cast<wchar_t>(message.wParam));
        default:
            return false;
    }
}

bool Keyboard::keyDown(MSG& message) {
    const HWND window = window_;
    form_.keyDown(static_cast<int>(message.wParam), shiftState());
    if (!FormWindow::isOpen(window)) return true;
    switch (message.wParam) {
        case VK_RETURN:
            return enter(message);
        case VK_ESCAPE:
            return escape();
        case VK_LEFT:
        case VK_UP:
            return arrow(message, -1);
        case VK_RIGHT:
        case VK_DOWN:
            return arrow(message, 1);
        case VK_TAB:
            if (!isDown(VK_CONTROL)) return IsDialogMessageW(window, &message);
            showCues();
            return true;
        default:
            return IsDialogMessageW(window, &message);
    }
}

bool Keyboard::enter(const MSG& message) {
    constexpr LPARAM repeated = 1 << 30;
    if (message.message != WM_KEYDOWN) return false;
    if (const auto* peer = peerOf(focused()); peer && peer->wantsKeys()) return false;
    if (!keyPress(VK_RETURN) || message.lParam & repeated) return true;
    if (forms::Control* control = focused(); control && control->takesEnter()) {
        peerOf(control)->enter();
    } else {
        form_.pressDefault();
    }
    return true;
}

bool Keyboard::escape() {
    if (const auto* peer = peerOf(focused()); peer && peer->wantsKeys()) return false;
    if (keyPress(VK_ESCAPE)) form_.pressCancel();
    return true;
}

/// Selects the next option. The way that Windows does this differs between its versions.
bool Keyboard::arrow(MSG& message, int step) {
    forms::Control* const control = focused();
    forms::OptionButton* const option = control ? control->option() : nullptr;
    if (!option || message.message != WM_KEYDOWN) return IsDialogMessageW(window_, &message);
    showCues();
    forms::OptionButton& next = option->nextOption(step);
    focus(next);
    next.click();
    return true;
}

/// Shows focus rectangles and underlines, as the system does by itself for the keys that it
/// handles.
void Keyboard::showCues() const {
    SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL),
                 0);
}

bool Keyboard::keyPress(WPARAM character) {
    const HWND window = window_;
    form_.keyPress(static_cast<int>(character));
    return FormWindow::isOpen(window);
}

bool Keyboard::mnemonic(wchar_t letter) {
    constexpr wchar_t lastAscii = 0x7f;
    if (letter <= L' ' || letter > lastAscii) return false;
    const auto capital = static_cast<char>(letter >= L'a' && letter <= L'z' ? letter - 32 : letter);
    forms::Control* target = form_.mnemonicTarget(capital, focused());
    if (!target || target->inMenu()) return false;  // the system opens menus
    focus(*target);
    settle();  // a box that the click shows returns the focus to this control
    target->click();
    return true;
}

void Keyboard::settle() {
    if (GetActiveWindow() != window_ || !form_.usable()) return;
    forms::Control* const now = focused();
    forms::Control* const wanted = now && now->usable() ? now : nextFocus();
    if (wanted && wanted != now) focus(*wanted);
    if (wanted == last_) return;
    last_ = wanted;
    markDefault();
}

/// Returns the control to focus while no usable one has the focus.
forms::Control* Keyboard::nextFocus() const {
    if (!last_) return forms::firstFocus(form_, takesFocus);
    return last_->usable() ? last_ : forms::focusAfter(*last_, takesFocus);
}

/// Marks the button that Enter presses: the focused one, else the form's default.
void Keyboard::markDefault() {
    const bool taken = last_ && last_->takesEnter();
    for (forms::Control* control : form_.allControls()) {
        if (auto* peer = peerOf(control))
            peer->showDefault(taken ? control == last_ : control->isDefault);
    }
}

forms::Control* Keyboard::focused() const {
    const auto* peer = ControlPeer::around(GetFocus(), window_);
    return peer ? &peer->control() : nullptr;
}

void Keyboard::focus(const forms::Control& control) {
    const auto* peer = peerOf(&control);
    if (peer && !(SendMessageW(peer->window(), WM_GETDLGCODE, 0, 0) & DLGC_STATIC))
        SetFocus(peer->window());
}

}  // namespace win32
