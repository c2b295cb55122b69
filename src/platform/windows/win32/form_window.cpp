#include "platform/windows/win32/form_window.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "platform/windows/wide.h"
#include "platform/windows/win32/background.h"
#include "platform/windows/win32/file_input.h"
#include "platform/windows/win32/fit_font.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/reflection.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

constexpr const wchar_t* programIcon = L"nwbw";

struct Frame {
    DWORD style;
    DWORD extendedStyle;
};

Frame frameOf(const forms::FormStyle& style) {
    if (style.sizable) return {WS_OVERLAPPEDWINDOW, 0};
    if (style.bare) return {WS_POPUP | WS_DLGFRAME, WS_EX_TOOLWINDOW};
    return {WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME};
}

HICON icon(int widthMetric, int heightMetric) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), programIcon, IMAGE_ICON,
                                         GetSystemMetrics(widthMetric),
                                         GetSystemMetrics(heightMetric), LR_SHARED));
}

/// The window class of all forms.
ATOM formClass(WNDPROC procedure) {
    static const ATOM made = [procedure] {
        WNDCLASSEXW kind{};
        kind.cbSize = sizeof kind;
        kind.lpfnWndProc = procedure;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.hIcon = icon(SM_CXICON, SM_CYICON);
        kind.hIconSm = icon(SM_CXSMICON, SM_CYSMICON);
        kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
        kind.lpszClassName = L"NorvaneForm";
        return RegisterClassExW(&kind);
    }();
    return made;
}

int systemDpi() {
    return static_cast<int>(GetDpiForSystem());
}

}  // namespace

void runLoop(const std::function<bool()>& goOn) {
    MSG message;
    while (goOn()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(0);  // the loops around this one end too
            return;
        }
        auto* form = FormWindow::of(GetAncestor(message.hwnd, GA_ROOT));
        if (!form || !form->keyboard().take(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (auto* active = FormWindow::of(GetActiveWindow())) active->keyboard().settle();
    }
}

HWND FormWindow::makeWindow(const forms::Form& form) {
    const Frame frame = frameOf(form.style);
    return CreateWindowExW(frame.extendedStyle | WS_EX_ACCEPTFILES,
                           MAKEINTATOM(formClass(procedure)),
                           platform::wide(form.Caption()).c_str(), frame.style | WS_CLIPCHILDREN, 0,
                           0, 0, 0, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

FormWindow::FormWindow(forms::Form& form)
    : form_(form), window_(makeWindow(form)), keyboard_(form, window_), tooltips_(window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    takeStyle();
    takeDefinedSize();
    update();
}

FormWindow::~FormWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

FormWindow* FormWindow::of(HWND window) {
    if (GetClassLongPtrW(window, GCW_ATOM) != formClass(procedure)) return nullptr;
    return reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

bool FormWindow::isOpen(HWND window) {
    const FormWindow* form = of(window);
    return form && !form->form_.unloaded();
}

/// Adds the frame to the client area, whose size the form's definition gives.
void FormWindow::takeDefinedSize() {
    const Frame frame = frameOf(form_.style);
    RECT rect{0, 0, pixels(form_.Width, dpi_), pixels(form_.Height, dpi_)};
    AdjustWindowRectExForDpi(&rect, frame.style, form_.hasMenu(), frame.extendedStyle,
                             dpiOf(window_));
    form_.moved({form_.Left, form_.Top, twips(widthOf(rect), dpi_), twips(heightOf(rect), dpi_)},
                form_.WindowState);
}

void FormWindow::update() {
    given_ = {form_.Left, form_.Top, form_.Width, form_.Height};
    SetWindowTextW(window_, platform::wide(form_.Caption()).c_str());
    SetWindowPos(window_, nullptr, pixels(form_.Left, systemDpi()), pixels(form_.Top, systemDpi()),
                 pixels(form_.Width, dpi_), pixels(form_.Height, dpi_),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::focus(const forms::Control& control) {
    Keyboard::focus(control);
}

/// Takes the system's font and colours at the window's resolution.
void FormWindow::takeStyle() {
    const int dpi = dpiOf(window_);
    dpi_ = layoutDpi(form_, window_);
    systemFont_ = messageFont(dpi);
    const LOGFONTW font = fittingFont(form_, systemFont_, dpi_);
    font_ = makeFont(font);
    style_ = {dpi_, font, font_.get(), TextMeter(font_.get(), dpi_).lineHeight(), tabPageColour()};
    background_ = backgroundOf(form_, style_.tabPage);
}

void FormWindow::restyle() {
    const Font before = std::move(font_);  // in use until all controls have the new one
    takeStyle();
    for (ControlPeer* peer : peers_) {
        peer->restyle(style_);
        peer->update();
    }
    tooltips_.restyle(style_);
    if (IsWindowVisible(window_)) fitControls();
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

/// Follows the system's settings. Most messages tell of settings that no window here shows, so a
/// list that is open stays open.
void FormWindow::systemChanged(UINT message) {
    // The system tells the controls themselves of themes, but not of colours.
    if (message == WM_SYSCOLORCHANGE) {
        for (const ControlPeer* peer : peers_)
            SendMessageW(peer->window(), message, 0, 0);
    }
    const LOGFONTW font = messageFont(dpiOf(window_));
    if (message == WM_SETTINGCHANGE && std::memcmp(&font, &systemFont_, sizeof font) == 0 &&
        layoutDpi(form_, window_) == dpi_)
        return;
    restyle();
    if (!IsZoomed(window_) && !IsIconic(window_)) update();  // the form grows with the text size
}

/// Takes the suggested place. The size is the form's own in the new scale: the system rounds it, so
/// that it would drift on the way from one screen to another and back.
void FormWindow::dpiChanged(const RECT& suggested) {
    restyle();
    given_.width = form_.Width;
    given_.height = form_.Height;
    const bool zoomed = IsZoomed(window_);
    SetWindowPos(window_, nullptr, suggested.left, suggested.top,
                 zoomed ? widthOf(suggested) : pixels(form_.Width, dpi_),
                 zoomed ? heightOf(suggested) : pixels(form_.Height, dpi_),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    // A window that is moved to its owner's screen before it opens gets its size only now.
    if (form_.style.centred && !IsWindowVisible(window_)) centre();
}

void FormWindow::fitControls() {
    RECT room;
    GetClientRect(window_, &room);
    for (ControlPeer* peer : peers_)
        peer->takeEdge(room);
    const LONG margin = pixels(60, dpi_);
    room.right -= margin;
    room.bottom -= margin;
    for (ControlPeer* peer : peers_)
        peer->fitInto(room);
}

void FormWindow::show() {
    if (form_.style.centred) centre();
    if (peers_.empty()) {
        buildPeers(form_, window_, style_, peers_);
        if (form_.hasMenu()) DrawMenuBar(window_);
    }
    fitControls();
    // Hides focus rectangles and underlines until the first key, if the user wants that.
    SendMessageW(window_, WM_CHANGEUISTATE, UIS_INITIALIZE, 0);
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
}

void FormWindow::showModal(forms::Form& owner) {
    owner_ = dynamic_cast<FormWindow&>(*owner.window()).window();
    SetWindowLongPtrW(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner_));
    EnableWindow(owner_, FALSE);
    show();
    runLoop([window = window_] { return isOpen(window); });
}

/// Enables the owner before the window goes, so that it becomes the active one.
void FormWindow::hide() {
    if (owner_) EnableWindow(owner_, TRUE);
    ShowWindow(window_, SW_HIDE);
}

void FormWindow::refresh() {
    RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::centre() {
    const HMONITOR monitor = MonitorFromWindow(owner_, MONITOR_DEFAULTTOPRIMARY);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(monitor, &screen);
    const RECT& room = screen.rcWork;
    RECT around = room;
    if (owner_ && !IsIconic(owner_)) GetWindowRect(owner_, &around);
    RECT own;
    GetWindowRect(window_, &own);
    // If the room is too small, the upper left corner stays visible.
    const LONG left = (around.left + around.right - widthOf(own)) / 2;
    const LONG top = (around.top + around.bottom - heightOf(own)) / 2;
    SetWindowPos(window_, nullptr, std::max(room.left, std::min(left, room.right - widthOf(own))),
                 std::max(room.top, std::min(top, room.bottom - heightOf(own))), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Tells the form where its window is. A length that the program set is kept while it matches in
/// pixels, so that storing and restoring a window does not make it drift.
void FormWindow::report() {
    if (!IsWindowVisible(window_)) return;
    if (IsIconic(window_)) {
        form_.moved({form_.Left, form_.Top, form_.Width, form_.Height},
                    forms::WindowState::Minimised);
        return;
    }
    const auto keep = [](int given, int seen, int dpi) {
        return pixels(given, dpi) == seen ? given : twips(seen, dpi);
    };
    RECT rect;
    GetWindowRect(window_, &rect);
    form_.moved(
        {keep(given_.left, rect.left, systemDpi()), keep(given_.top, rect.top, systemDpi()),
         keep(given_.width, widthOf(rect), dpi_), keep(given_.height, heightOf(rect), dpi_)},
        IsZoomed(window_) ? forms::WindowState::Maximised : forms::WindowState::Normal);
}

void FormWindow::close() {
    report();
    form_.close();
}

/// Closes the first form, which closes all others, even while one of them, a box or an open menu
/// waits for an answer that will not come. The system may end the program as soon as this has
/// returned.
void FormWindow::endSession() {
    forms::Application& application = form_.application();
    if (application.Count() == 0) return;
    EndMenu();
    sessionEnds_ = true;
    dynamic_cast<FormWindow&>(*application.Forms(0).window()).close();
    sessionEnds_ = false;
    PostQuitMessage(0);
}

void FormWindow::choose(int menuItem) {
    const auto controls = form_.allControls();
    const int position = menuItem - firstId;
    if (position >= 0 && position < static_cast<int>(controls.size())) controls[position]->click();
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM first,
                                       LPARAM second) noexcept {
    FormWindow* form = of(window);
    return form ? form->handle(message, first, second)
                : DefWindowProcW(window, message, first, second);
}

LRESULT FormWindow::handle(UINT message, WPARAM first, LPARAM second) {
    const HWND window = window_;  // the message may end the form
    if (const auto answer = reflect(message, first, second, background_)) return *answer;
    switch (message) {
        case WM_COMMAND:
            if (HIWORD(first) == 0) choose(LOWORD(first));
            return 0;
        case WM_CLOSE:
            close();
            return 0;
        case WM_QUERYENDSESSION:
            return TRUE;
        case WM_ENDSESSION:
            if (first) endSession();
            return 0;
        case WM_ACTIVATE:
            report();
            if (LOWORD(first) != WA_INACTIVE) form_.activate();
            break;
        case WM_SETFOCUS:
            keyboard_.settle();
            return 0;
        case WM_MOVE:
            report();
            return 0;
        case WM_SIZE:
            report();
            if (IsWindowVisible(window)) fitControls();
            return 0;
        case WM_DPICHANGED:
            dpiChanged(*reinterpret_cast<const RECT*>(second));
            return 0;
        case WM_DROPFILES:
            takeDrop(form_, window, first);
            return 0;
        case WM_SETCURSOR:
            if (withTooltips_ < peers_.size()) {
                tooltips_.add(std::span(peers_).subspan(withTooltips_), style_);
                withTooltips_ = peers_.size();
            }
            break;
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            systemChanged(message);
            break;
        case WM_ERASEBKGND:
            fill(window, reinterpret_cast<HDC>(first), background_);
            return TRUE;
        default:
            break;
    }
    return DefWindowProcW(window, message, first, second);
}

}  // namespace win32
