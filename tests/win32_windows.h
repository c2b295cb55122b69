#pragma once

#include "fakes.h"
#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/form_window.h"
#include "platform/windows/win32/toolkit.h"

inline LRESULT ask(HWND window, UINT message) {
    return SendMessageW(window, message, 0, 0);
}

inline std::string textOf(HWND window) {
    std::wstring text(GetWindowTextLengthW(window), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return platform::narrow(text);
}

inline HWND windowOf(const forms::Control& control) {
    return win32::peerOf(&control)->window();
}

inline RECT placeOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return place;
}

inline HWND windowOf(forms::Form& form) {
    return dynamic_cast<win32::FormWindow&>(*form.window()).window();
}

/// The console in its window.
struct Windows : testing::Test, fakes::DeskWith<win32::Win32Toolkit> {
    console::frmConsole& form = open();

    ~Windows() override {
        MSG quit;
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }

    /// Posts a key to the focused window and runs the message loop.
    static void press(WPARAM key, LPARAM details = 1, UINT message = WM_KEYDOWN) {
        PostMessageW(GetFocus(), message, key, details);
        MSG next;
        win32::runLoop([&] {
            return PeekMessageW(&next, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE) != 0;
        });
    }
    [[nodiscard]] HWND window() const { return windowOf(form); }
    /// Returns the window of a form's tooltips.
    static HWND tooltipsOf(HWND window) {
        ask(window, WM_SETCURSOR);
        HWND tips = nullptr;
        do
            tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr);
        while (tips && GetWindow(tips, GW_OWNER) != window);
        return tips;
    }
    /// Performs the action while a message loop of the system's own runs.
    static void soon(std::function<void()> action) {
        static std::function<void()> waiting;
        waiting = std::move(action);
        SetTimer(nullptr, 0, 200, [](HWND, UINT, UINT_PTR timer, DWORD) {
            KillTimer(nullptr, timer);
            waiting();
        });
    }
};
