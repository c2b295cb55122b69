#include "platform/windows/windows_api.h"
// After it, which it needs.
#include <shlobj.h>

#include <algorithm>
#include <cstring>

#include "endurance.h"
#include "forms/file_lists.h"
#include "helpers.h"
#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/file_dialog.h"
#include "platform/windows/win32/form_window.h"
#include "platform/windows/win32/message_box.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/toolkit.h"
#include "rules.h"

using namespace fakes;

namespace {

LRESULT ask(HWND window, UINT message) {
    return SendMessageW(window, message, 0, 0);
}

/// Expects the window to match its control, and each group of options to have one tab stop.
void expectShown(const forms::Control& control, HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    ASSERT_EQ(control.Enabled, !(style & WS_DISABLED)) << control.fullName();
    ASSERT_EQ(control.inSight(), (style & WS_VISIBLE) != 0) << control.fullName();
    const auto expectValue = [&](LRESULT value, UINT message) {
        ASSERT_EQ(value, ask(window, message)) << control.fullName();
    };
    if (const auto* box = dynamic_cast<const forms::CheckBox*>(&control))
        expectValue(box->Value, BM_GETCHECK);
    if (const auto* list = dynamic_cast<const forms::ListBox*>(&control))
        expectValue(list->ListIndex, LB_GETCURSEL);
    if (const auto* tabs = dynamic_cast<const forms::TabStrip*>(&control))
        expectValue(tabs->SelectedItem - 1, TCM_GETCURSEL);
    if (const auto* list = dynamic_cast<const forms::DriveList*>(&control))
        expectValue(std::ranges::find(list->drives(), list->Drive()) - list->drives().begin(),
                    CB_GETCURSEL);
    if (const auto* option = dynamic_cast<const forms::OptionButton*>(&control)) {
        expectValue(option->Value, BM_GETCHECK);
        ASSERT_EQ(option->Value, (style & WS_TABSTOP) != 0) << control.fullName();
    }
    const auto* text = dynamic_cast<const forms::TextBox*>(&control);
    if (text && text->Visible)
        expectValue(std::ssize(platform::wide(text->Text())), WM_GETTEXTLENGTH);
}

HWND windowOf(const forms::Control& control) {
    return win32::peerOf(&control)->window();
}

RECT placeOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return place;
}

/// The system's windows, with a user who chooses any file.
struct Toolkit : win32::Win32Toolkit, endurance::Choices {
    std::string chooseFile(forms::Form&, const forms::FileQuestion&) override { return anyName(); }
};

struct Windows : testing::Test, DeskWith<Toolkit> {
    console::frmConsole& form = open();

    ~Windows() override {
        MSG quit;
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }

    /// Posts a key message to the focused window, with the modifier down, and runs the message
    /// loop.
    static void press(UINT message, WPARAM key, int modifier = 0) {
        BYTE keys[256] = {};
        if (modifier) keys[modifier] = 0x80;
        SetKeyboardState(keys);
        PostMessageW(GetFocus(), message, key, 1);
        MSG next;
        win32::runLoop([&] {
            return PeekMessageW(&next, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE) != 0;
        });
    }
    [[nodiscard]] HWND window() const {
        return dynamic_cast<win32::FormWindow&>(*form.window()).window();
    }
    /// Returns the resolution of the console's layout, while it has the width of its definition.
    [[nodiscard]] int layoutDpi() const {
        return MulDiv(placeOf(window()).right - placeOf(window()).left, 1440, 6500);
    }
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

TEST_F(Windows, KeysReachTheModel) {
    press(WM_KEYDOWN, VK_TAB, VK_CONTROL);
    press(WM_KEYDOWN, VK_TAB);
    press(WM_KEYDOWN, VK_TAB, VK_CONTROL);
    EXPECT_EQ(GetFocus(), windowOf(form.play.txtFnameP));
    press(WM_SYSCHAR, 'r', VK_MENU);
    SetFocus(windowOf(form.play.optPlayer(2)));
    EXPECT_EQ(form.play.player(), 1) << "the focus alone selects nothing";
    SetFocus(windowOf(form.play.optPlayer(1)));
    press(WM_KEYDOWN, VK_UP);
    EXPECT_EQ(form.play.player(), 2) << "wraps around and skips a disabled option";
}

TEST_F(Windows, AWindowMovedByTheUserComesBackWithoutDriftAndIsSavedAtLogOff) {
    RECT suggested = placeOf(window());
    const int dpi = layoutDpi();
    ++suggested.right;  // the system rounds
    SendMessageW(window(), WM_DPICHANGED, 0, reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ((std::vector<int>{form.Left, form.Width}), (std::vector<int>{1000, 6500}));
    SetWindowPos(window(), nullptr, 101, 50, 600, 500, SWP_NOZORDER);
    EXPECT_EQ((std::vector<int>{form.Left, form.Width}),
              (std::vector<int>{1515, MulDiv(600, 1440, dpi)}));
    form.tbsOptions.SelectedItem = 2;
    runtime.whileBoxIsOpen = [this] {
        EXPECT_EQ(ask(window(), WM_QUERYENDSESSION), TRUE);
        ask(window(), WM_ENDSESSION);
        EXPECT_FALSE(form.unloaded()) << "the session continues";
        SendMessageW(window(), WM_ENDSESSION, TRUE, 0);
    };
    press(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(runtime.settings["MainLeft"], "1515");
    EXPECT_EQ(application.Count(), 0);
}

TEST_F(Windows, TheEndOfTheSessionClosesAnOpenMenuAtOnce) {
    runtime.readOnly = true;  // so that the save fails
    runtime.whileBoxIsOpen = [] {
        EXPECT_EQ(win32::messageBox("text", 0, "title"), core::Runtime::Answer::No);
    };
    soon([this] { SendMessageW(window(), WM_ENDSESSION, TRUE, 0); });
    SendMessageW(window(), WM_SYSCOMMAND, SC_KEYMENU, 'f');
    EXPECT_EQ(application.Count(), 0);
}

TEST_F(Windows, BoxesBelongToAFormAndTheFileDialogKeepsTheCurrentFolder) {
    CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 9, 9,
                    window(), nullptr, nullptr, nullptr);
    HWND owner = nullptr;
    soon([&owner] {
        const HWND box = FindWindowW(nullptr, L"title");
        owner = GetWindow(box, GW_OWNER);
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    SetForegroundWindow(GetDesktopWindow());
    win32::messageBox("text", 0, "title");
    EXPECT_EQ(owner, window());

    const fs::path before = fs::current_path();
    soon([] {
        fs::current_path(fs::current_path().root_path());
        PostMessageW(FindWindowW(nullptr, L"title"), WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(win32::chooseFile(window(), {"title", "All|*.*", ""}), "");
    EXPECT_EQ(fs::current_path(), before);
}

TEST_F(Windows, TabsAndShortenedRowsHaveTooltips) {
    NMTTDISPINFOW asked{};
    asked.hdr = {nullptr, 2, static_cast<UINT>(TTN_GETDISPINFOW)};
    SendMessageW(windowOf(form.tbsOptions), WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&asked));
    EXPECT_EQ(platform::narrow(asked.lpszText), form.tbsOptions.Tabs[2].tooltip);

    auto& dialog = application.load<dialogs::frmIncludeList>(program);
    dialog.Show();
    auto& list = dialog.List1;
    list.AddItem("c:\\" + std::string(200, 'x'));
    list.AddItem("c:\\lib");
    const auto tooltipsAt = [&](int row) {
        const LRESULT height = ask(windowOf(list), LB_GETITEMHEIGHT);
        SendMessageW(windowOf(list), WM_MOUSEMOVE, 0, MAKELPARAM(9, row * height + 2));
        return ask(tooltipsOf(GetParent(windowOf(list))), TTM_GETTOOLCOUNT);
    };
    const LRESULT others = tooltipsAt(1);
    EXPECT_EQ(tooltipsAt(0), others + 1);
    EXPECT_EQ(tooltipsAt(1), others);
}

TEST_F(Windows, SystemSettingsReachTheControlsAndLeaveAnOpenListOpen) {
    static int changes = 0;
    const auto count = [](HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                          DWORD_PTR) -> LRESULT {
        changes += message == WM_SYSCOLORCHANGE;
        return DefSubclassProc(window, message, first, second);
    };
    SetWindowSubclass(windowOf(form.tbsOptions), count, 1, 0);
    ask(window(), WM_SYSCOLORCHANGE);
    EXPECT_EQ(changes, 1);

    auto& dialog = application.load<dialogs::frmIncludeAdd>(program, form.compile.lstInclude);
    dialog.Show();
    const HWND drives = windowOf(dialog.Drive1);
    SendMessageW(drives, CB_SHOWDROPDOWN, TRUE, 0);
    ask(GetAncestor(drives, GA_ROOT), WM_SETTINGCHANGE);
    EXPECT_TRUE(ask(drives, CB_GETDROPPEDSTATE));
}

TEST_F(Windows, FormsGrowWithTheSystemsTextsButDoNotMove) {
    const HWND box = windowOf(form.edit.txtFnameE);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    int widest = 0;
    for (const int height : {-12, -15, -18, -12}) {
        metrics.lfMessageFont.lfHeight = height;
        SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        ask(window(), WM_SETTINGCHANGE);
        EXPECT_EQ((std::vector<int>{placeOf(window()).left, form.Left, form.Width}),
                  (std::vector<int>{67, 1000, 6500}));
        const int width = placeOf(window()).right - placeOf(window()).left;
        EXPECT_EQ(width > widest, widest == 0 || height < -12) << height;
        widest = std::max(width, widest);
        EXPECT_EQ(ask(tooltipsOf(window()), TTM_GETMAXTIPWIDTH), MulDiv(4800, layoutDpi(), 1440));
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(ask(box, WM_GETFONT)), sizeof font, &font);
        EXPECT_EQ(font.lfHeight, height) << "captions, menus and boxes have one size";
        RECT text;
        GetClientRect(box, &text);
        MapWindowPoints(box, nullptr, reinterpret_cast<POINT*>(&text), 2);
        EXPECT_NEAR(text.top - placeOf(box).top, placeOf(box).bottom - text.bottom, 1) << height;
        EXPECT_NEAR(text.bottom - text.top, -height, 4);
    }
}

TEST_F(Windows, BoxesTakeOneDroppedFile) {
    form.tbsOptions.SelectedItem = 3;
    form.play.chkPlayback.click();
    const auto drop = [this](const forms::Control& on, const std::wstring& names) {
        const DROPFILES head{sizeof head, {5, 5}, FALSE, TRUE};
        const HGLOBAL memory = GlobalAlloc(GHND, sizeof head + 2 * names.size() + 4);
        auto* bytes = static_cast<char*>(GlobalLock(memory));
        std::memcpy(bytes, &head, sizeof head);
        std::memcpy(bytes + sizeof head, names.data(), 2 * names.size());
        MapWindowPoints(windowOf(on), window(), reinterpret_cast<POINT*>(bytes + 4), 1);
        GlobalUnlock(memory);
        SendMessageW(window(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    };
    drop(form.play.labLogfile, L"d:\\my games\\\u00e9t\u00e9.log");
    drop(form.play.txtLogfile, {L"c:\\1.log\0c:\\2.log", 17});
    EXPECT_EQ(form.play.txtLogfile.Text(), "d:\\my games\\été.log");
}

/// A user, or an automation tool, who does anything at random in the topmost window.
struct WindowsWalk : Windows, endurance::Choices {
    void work(forms::Form& worked, int most) {
        for (const int end = actions + most; actions < end && !HasFatalFailure();) {
            SCOPED_TRACE("action " + std::to_string(++actions));
            const int before = modals;
            act(worked, any(worked.allControls().size()));
            if (worked.unloaded() || HasFatalFailure()) return;
            for (const forms::Control* control : worked.allControls()) {
                if (win32::peerOf(control)) expectShown(*control, windowOf(*control));
            }
            if (&worked == &form) rules::expectAll(form, program.state, modals != before);
        }
        if (&worked != &form) worked.close();
    }

    /// Presses a key, or acts on one of the form's controls.
    void act(forms::Form& worked, std::size_t index) {
        forms::Control& control = *worked.allControls()[index];
        const auto letter = static_cast<char>('A' + any(26));
        const bool opensMenu = worked.hasMenu() && (letter == 'F' || letter == 'H');
        if (any(6) == 0) {
            press(WM_KEYDOWN, keys[any(keys.size())], any(2) ? VK_SHIFT : 0);
        } else if (any(6) == 0 && !opensMenu) {
            press(any(2) ? WM_SYSCHAR : WM_CHAR, letter);
        } else if (dynamic_cast<forms::MenuItem*>(&control)) {
            SendMessageW(window(), WM_COMMAND, win32::firstId + index, 0);
        } else if (win32::peerOf(&control)) {
            touch(control, windowOf(control));
        }
    }

    /// Sends what automation tools send. Each kind of window handles only its own messages.
    void touch(const forms::Control& control, HWND window) {
        constexpr UINT messages[][4] = {
            {BM_CLICK, LB_SETCURSEL, CB_SETCURSEL, TCM_SETCURSEL},
            {BM_SETCHECK, LB_SETCURSEL, CB_SETCURSEL, TCM_SETCURFOCUS},
        };
        if (any(5) == 0 && control.usable())
            SetFocus(window);
        else if (dynamic_cast<const forms::TextBox*>(&control))
            SetWindowTextW(window, platform::wide(anyName()).c_str());
        else
            for (const UINT message : messages[any(2)])
                SendMessageW(window, message, any(4), 0);
    }

    /// Works the modal forms that an action opens.
    static void CALLBACK watch(HWND, UINT, UINT_PTR, DWORD) {
        forms::Form& top = up->application.Forms(up->application.Count() - 1);
        if (&top == up->worked || &top == &up->form) return;
        forms::Form* const below = std::exchange(up->worked, &top);
        ++up->modals;
        up->work(top, 40);
        up->worked = below;
    }

    static inline WindowsWalk* up = nullptr;
    const std::vector<WPARAM> keys{VK_TAB,   VK_TAB,   VK_TAB,  VK_UP,     VK_DOWN,  VK_LEFT,
                                   VK_RIGHT, VK_SPACE, VK_HOME, VK_RETURN, VK_ESCAPE};
    forms::Form* worked = nullptr;
    int actions = 0;
    int modals = 0;
};

TEST_F(WindowsWalk, MessagesOfAllKindsKeepEveryRule) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    up = this;
    for (const std::string& name : names)
        runtime.files[name];
    form.mnuFileExit.Enabled = false;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, watch);
    work(form, endurance::setting("NWBW_ACTIONS", 500));
    KillTimer(nullptr, timer);
    EXPECT_GT(modals, 0);
}

}  // namespace
