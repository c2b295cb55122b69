// What the program's own work costs at the start: the time from the start of the process to the
// console on the screen ("console"), against a window with as many bare controls of the same
// classes ("bare"), of which as many are shown. Prints milliseconds.

#include <cstdio>
#include <string>
#include <vector>

#include "console/frm_console.h"
#include "platform/win32/form_window.h"
#include "platform/win32/message_box.h"
#include "platform/win32/win32_runtime.h"
#include "platform/win32/win32_toolkit.h"

namespace {

double millisecondsSinceStart() {
    FILETIME start, exit, kernel, user, now;
    GetProcessTimes(GetCurrentProcess(), &start, &exit, &kernel, &user);
    GetSystemTimePreciseAsFileTime(&now);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime;
    };
    return (ticks(now) - ticks(start)) / 1e4;
}

void report(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    std::printf("%.1f\n", millisecondsSinceStart());
}

struct BareControls {
    const wchar_t* className;
    DWORD style;
    int shown;
    int hidden;
};

// As many as the console has when it opens for the first time.
constexpr BareControls bareControls[] = {
    {L"SysTabControl32", 0, 1, 0},    {L"msctls_statusbar32", 0, 1, 0},
    {L"STATIC", SS_LEFT, 4, 18},      {L"EDIT", WS_BORDER, 1, 8},
    {L"BUTTON", BS_PUSHBUTTON, 2, 9}, {L"BUTTON", BS_AUTORADIOBUTTON, 2, 20},
    {L"BUTTON", BS_CHECKBOX, 1, 13},  {L"BUTTON", BS_GROUPBOX, 1, 11},
    {L"LISTBOX", WS_BORDER, 0, 1},
};

void showBareWindow() {
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = DefWindowProcW;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW);
    kind.lpszClassName = L"Bare";
    RegisterClassExW(&kind);
    const HWND window = CreateWindowExW(0, L"Bare", L"Bare", WS_OVERLAPPEDWINDOW, 67, 67, 433, 433,
                                        nullptr, nullptr, kind.hInstance, nullptr);
    int row = 0;
    for (const BareControls& controls : bareControls) {
        for (int i = 0; i < controls.shown + controls.hidden; ++i) {
            const DWORD shown = i < controls.shown ? WS_VISIBLE : 0;
            CreateWindowExW(0, controls.className, L"Caption", WS_CHILD | shown | controls.style,
                            10 + row % 3 * 130, 10 + row / 3 % 15 * 25, 120, 23, window, nullptr,
                            kind.hInstance, nullptr);
            if (shown) ++row;
        }
    }
    ShowWindow(window, SW_SHOW);
    report(window);
}

void showConsole(forms::Toolkit& toolkit) {
    platform::Win32Runtime runtime(win32::messageBox);
    forms::Application application(toolkit, [](const std::string&) {});
    core::Program program{runtime, application, {}};
    auto& console = application.load<console::frmConsole>(program);
    console.Show();
    report(dynamic_cast<win32::FormWindow&>(*console.window()).handle());
}

}  // namespace

int main(int count, char** arguments) {
    win32::Win32Toolkit toolkit;
    if (count > 1 && std::string(arguments[1]) == "bare") {
        showBareWindow();
    } else {
        showConsole(toolkit);
    }
}
