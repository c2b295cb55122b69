#include "platform/windows/windows_api.h"
// After it, which it needs.
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <sstream>

#include "fakes.h"
#include "forms/file_lists.h"
#include "platform/windows/wide.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/file_dialog.h"
#include "platform/windows/win32/form_window.h"
#include "platform/windows/win32/message_box.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/toolkit.h"

using namespace fakes;

namespace {

LRESULT ask(HWND window, UINT message) {
    return SendMessageW(window, message, 0, 0);
}

std::string textOf(HWND window) {
    std::wstring text(GetWindowTextLengthW(window), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return platform::narrow(text);
}

HWND windowOf(const forms::Control& control) {
    return win32::peerOf(&control)->window();
}

RECT placeOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return place;
}

HWND windowOf(forms::Form& form) {
    return dynamic_cast<win32::FormWindow&>(*form.window()).window();
}

struct Windows : testing::Test, DeskWith<win32::Win32Toolkit> {
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

TEST_F(Windows, KeysReachTheFormThenTheModel) {
    const auto& panel = form.compile;
    form.tbsOptions.SelectedItem = 3;
    form.play.chkPlayback.click();  // disables the first player
    std::string heard;
    for (forms::Control* control : form.allControls())
        if (control->name != "tbsOptions")
            control->setHandler([&heard, control] { heard += control->fullName() + ' '; });
    const std::tuple<int, const forms::Control&, UINT, WPARAM, const char*> rows[] = {
        {3, form.play.optPlayer(1), WM_KEYDOWN, VK_UP, "optPlayer(2) optPlayer(2)"},
        {3, form.play.optPlayer(2), WM_KEYDOWN, VK_RIGHT, "optPlayer(1) optPlayer(1)"},
        {2, panel.txtFname, WM_KEYDOWN, 'A', "txtFname txtFname"},
        {2, panel.txtFname, WM_KEYDOWN, VK_RETURN, "btnCompile txtFname"},
        {2, panel.btnBrowse, WM_KEYDOWN, VK_RETURN, "btnBrowse btnBrowse"},
        {2, panel.optFormat(0), WM_KEYDOWN, VK_TAB, "chkDebug"},
        {2, panel.txtFname, WM_SYSCHAR, 'd', "chkDebug chkDebug"},
        {2, panel.txtFname, WM_SYSCHAR, 'P', "optFormat(2) optFormat(2)"},
        {2, panel.txtFname, WM_SYSCHAR, 'z', "txtFname"}};
    for (const auto& [tab, focus, message, key, expected] : rows) {
        form.tbsOptions.SelectedItem = tab;
        SetFocus(windowOf(focus));
        EXPECT_EQ(std::exchange(heard, ""), "") << "the focus alone does nothing";
        press(key, 1, message);
        const auto* reached = win32::ControlPeer::of(GetFocus());
        ASSERT_TRUE(reached);
        EXPECT_EQ(heard + reached->control().fullName(), expected);
        heard.clear();
    }
}

TEST_F(Windows, ADialogShowsWhatEnterPressesAndEscEndsIt) {
    const auto isDefault = [](HWND button) {
        return (GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    };
    soon([&] {
        EXPECT_FALSE(IsWindowEnabled(window()));
        EXPECT_EQ(GetWindow(windowOf(application.Forms(1)), GW_OWNER), window());
        const HWND ok = windowOf(*application.Forms(1).find("OKButton"));
        EXPECT_TRUE(isDefault(ok));
        press(VK_RETURN, KF_REPEAT << 16);  // held since before
        press(VK_TAB);
        EXPECT_TRUE(isDefault(GetFocus()) && !isDefault(ok));
        press(VK_ESCAPE);
    });
    form.mnuOptionsPrograms.click();
    EXPECT_TRUE(IsWindowEnabled(window()));
}

/// An automation tool, which meets a control of any kind and acts on it by messages. A control that
/// is in use must follow, and another one must not.
struct Tool : forms::ControlVisitor {
    void meet(forms::Control& met, int itsId) {
        SCOPED_TRACE(met.form().name + " " + met.fullName());
        control = &met;
        id = itsId;
        if (const auto* peer = win32::peerOf(&met)) {
            window = peer->window();
            const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
            EXPECT_EQ(met.Enabled, !(style & WS_DISABLED));
            EXPECT_EQ(met.inSight(), (style & WS_VISIBLE) != 0);
        }
        ASSERT_TRUE(met.peer() || dynamic_cast<forms::CommonDialog*>(&met));
        met.accept(*this);
    }

    void visit(forms::Label&) override {}
    void visit(forms::Line&) override {}
    void visit(forms::Image&) override {}
    void visit(forms::Frame&) override {
        EXPECT_EQ(ask(window, WM_NCHITTEST), HTCLIENT);
        expectClick(window, WM_LBUTTONDOWN, 0);
    }
    void visit(forms::PictureBox&) override {}
    void visit(forms::StatusBar&) override {
        int ends[3] = {};
        SendMessageW(window, SB_GETPARTS, std::size(ends), reinterpret_cast<LPARAM>(ends));
        EXPECT_NEAR(ends[2] - ends[1], 56, 12) << "room for the time";
    }
    void visit(forms::Button&) override { expectClick(window, BM_CLICK, 0); }
    void visit(forms::MenuItem& item) override {
        const HWND form = windowOf(item.form());
        EXPECT_EQ(GetMenuItemCount(GetMenu(form)), 3);
        wchar_t caption[80] = {};
        GetMenuStringW(GetMenu(form), id, caption, std::size(caption), MF_BYCOMMAND);
        EXPECT_EQ(platform::narrow(caption), item.Caption() == "-" ? "" : item.Caption());
        EXPECT_EQ(GetMenuState(GetMenu(form), id, MF_BYCOMMAND) & MF_GRAYED,
                  item.Enabled ? 0 : MF_GRAYED);
        expectClick(form, WM_COMMAND, id);
    }
    void visit(forms::CheckBox& box) override {
        for (const UINT message : {BM_SETCHECK, BM_CLICK})
            follow({1, 0}, message, BM_GETCHECK, [&box] { return box.Value(); });
    }
    void visit(forms::OptionButton& option) override {
        for (const UINT message : {BM_SETCHECK, BM_CLICK}) {
            option.nextOption(1).click();
            follow({1}, message, BM_GETCHECK, [&option] { return option.Value(); });
        }
    }
    void visit(forms::TextBox& box) override {
        for (const auto& [message, typed] :
             {std::pair(WM_SETTEXT, std::wstring(300, L'\u00e9')), {EM_REPLACESEL, L"y"}}) {
            const std::string expected =
                box.usable() && !box.readOnly ? platform::narrow(typed) : box.Text();
            SendMessageW(window, EM_SETSEL, 0, -1);
            SendMessageW(window, message, 0, reinterpret_cast<LPARAM>(typed.c_str()));
            EXPECT_EQ(box.Text(), expected);
            EXPECT_TRUE(!box.Visible || textOf(window) == expected);
        }
    }
    void visit(forms::ListBox& list) override {
        while (list.ListCount() < 40)
            list.AddItem("c:\\" + std::to_string(list.ListCount()));
        list.setList(1, "c:\\new");
        list.RemoveItem(0);
        EXPECT_EQ(ask(window, LB_GETCOUNT), list.ListCount());
        EXPECT_TRUE(GetWindowLongW(window, GWL_STYLE) & WS_VSCROLL);
        for (int row = 0; row < list.ListCount(); ++row)
            EXPECT_EQ(rowText(row), list.List(row));
        const auto now = [&list] { return list.ListIndex(); };
        follow({1, 0, 2}, LB_SETCURSEL, LB_GETCURSEL, now);
        SetFocus(window);
        if (list.usable()) Windows::press(VK_UP);
        EXPECT_EQ(now(), list.usable() ? 1 : ask(window, LB_GETCURSEL));
    }
    void visit(forms::DriveList& list) override {
        follow({1, 0}, CB_SETCURSEL, CB_GETCURSEL, [&list] {
            return std::ranges::find(list.drives(), list.Drive()) - list.drives().begin();
        });
    }
    void visit(forms::FolderList& list) override {
        for (const int row : {0, 2}) {
            SetFocus(window);
            SendMessageW(window, LB_SETCURSEL, row, 0);
            Windows::press(VK_RETURN);
            EXPECT_EQ(ask(window, LB_GETCOUNT), std::ssize(list.rows()));
            EXPECT_EQ(ask(window, LB_GETCURSEL), list.openRow());
        }
        EXPECT_EQ(list.Path(), "c:\\tales");
        EXPECT_EQ(rowText(1) + rowText(2), "   tales      lib");
    }
    void visit(forms::TabStrip& tabs) override {
        for (const UINT message : {TCM_SETCURSEL, TCM_SETCURFOCUS})
            follow({0, 2, tabs.SelectedItem - 1}, message, TCM_GETCURSEL,
                   [&tabs] { return tabs.SelectedItem - 1; });
    }

    void expectClick(HWND receiver, UINT message, WPARAM first) {
        const auto clicks = std::make_shared<int>(0);
        control->setHandler([clicks] { ++*clicks; });
        SendMessageW(receiver, message, first, 0);
        EXPECT_EQ(*clicks, control->usable());
    }
    /// Sends the values, and expects the control and its window to have each.
    void follow(const std::vector<int>& values, UINT set, UINT get,
                const std::function<LRESULT()>& now) {
        for (const int value : values) {
            const LRESULT expected = control->usable() ? value : now();
            EXPECT_EQ(ask(window, get), now());
            SendMessageW(window, set, value, 0);
            EXPECT_EQ(now(), expected);
            EXPECT_EQ(ask(window, get), expected);
        }
    }
    [[nodiscard]] std::string rowText(int row) const {
        wchar_t text[80] = {};
        SendMessageW(window, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text));
        return platform::narrow(text);
    }

    forms::Control* control = nullptr;
    int id = 0;
    HWND window = nullptr;
};

TEST_F(Windows, EveryControlFollowsAnAutomationTool) {
    runtime.tree = {
        {"c:\\", {"nwb", "tales"}}, {"c:\\nwb", {}}, {"c:\\tales", {"lib"}}, {"d:\\", {}}};
    for (forms::Form* shown : everyForm(application, program)) {
        shown->Show();
        auto* console = dynamic_cast<console::frmConsole*>(shown);
        for (int tab = 1; console && tab <= 4; ++tab)
            console->tbsOptions.SelectedItem = tab;  // creates the windows in its panel
        for (int tab = console ? 4 : 1; tab > 0; --tab) {
            if (console) console->tbsOptions.SelectedItem = tab;
            int id = win32::firstId;
            for (forms::Control* control : shown->allControls())
                Tool().meet(*control, id++);
        }
    }
}

TEST_F(Windows, AWindowMovedByTheUserComesBackWithoutDriftAndIsSavedAtLogOff) {
    RECT suggested = placeOf(window());
    const int dpi = MulDiv(suggested.right - suggested.left, 1440, form.Width);
    ++suggested.right;  // the system rounds
    SendMessageW(window(), WM_DPICHANGED, 0, reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ((std::vector<int>{form.Left, form.Width}), (std::vector<int>{1000, 6500}));
    SetWindowPos(window(), nullptr, 101, 50, 400, 500, SWP_NOZORDER);
    EXPECT_LT(placeOf(windowOf(form.picOptions(0))).right, 501);
    EXPECT_EQ((std::vector<int>{form.Left, form.Width}),
              (std::vector<int>{1515, MulDiv(400, 1440, dpi)}));
    SetWindowPos(window(), nullptr, 202, 50, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    form.tbsOptions.SelectedItem = 2;
    runtime.whileBoxIsOpen = [this] {
        EXPECT_EQ(ask(window(), WM_QUERYENDSESSION), TRUE);
        ask(window(), WM_ENDSESSION);
        EXPECT_FALSE(form.unloaded()) << "the session continues";
        SendMessageW(window(), WM_ENDSESSION, TRUE, 0);
    };
    press(VK_RETURN);
    EXPECT_EQ(runtime.settings["MainLeft"], "3030");
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
    using core::Runtime;
    for (const auto& [flags, button, answer] :
         {std::tuple(Runtime::okOnly, IDOK, Runtime::Answer::Ok),
          {Runtime::yesNo, IDYES, Runtime::Answer::Yes},
          {Runtime::yesNo, IDNO, Runtime::Answer::No}}) {
        HWND owner = nullptr;
        soon([&owner, button = button] {
            const HWND box = FindWindowW(nullptr, L"title");
            owner = GetWindow(box, GW_OWNER);
            EXPECT_TRUE(FindWindowExW(box, nullptr, nullptr, L"t\u00e9xt"));
            PostMessageW(box, WM_COMMAND, button, 0);
        });
        SetForegroundWindow(GetDesktopWindow());
        EXPECT_EQ(win32::messageBox("téxt", flags, "title"), answer);
        EXPECT_EQ(owner, window());
    }

    const fs::path before = fs::current_path();
    for (const std::string& offered : {std::string("cave.kel"), {"c|b?"}, std::string(261, 'x')}) {
        HWND owner = nullptr;
        soon([&owner] {
            fs::current_path(fs::current_path().root_path());
            const HWND dialog = FindWindowW(nullptr, L"title");
            owner = GetWindow(dialog, GW_OWNER);
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        });
        EXPECT_EQ(toolkit.chooseFile(form, {"title", "All|*.*", offered}), "");
        EXPECT_EQ(owner, window());
        EXPECT_EQ(fs::current_path(), before);
    }
}

TEST_F(Windows, AClickOnTheSelectedTabCounts) {
    int clicks = 0;
    form.tbsOptions.setHandler([&clicks] { ++clicks; });
    NMHDR click{windowOf(form.tbsOptions), 0, static_cast<UINT>(NM_CLICK)};
    SendMessageW(window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    EXPECT_EQ(clicks, 1);
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
        return ask(tooltipsOf(windowOf(dialog)), TTM_GETTOOLCOUNT);
    };
    const LRESULT others = tooltipsAt(1);
    EXPECT_EQ(tooltipsAt(0), others + 1);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    SendMessageW(tooltipsOf(windowOf(dialog)), TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_TRUE(tool.uFlags & TTF_SUBCLASS) << "it notices the mouse itself";
    EXPECT_EQ(tooltipsAt(1), others);
}

TEST_F(Windows, OtherSettingsOfTheSystemLeaveAnOpenListOpen) {
    auto& dialog = application.load<dialogs::frmIncludeAdd>(program, form.compile.lstInclude);
    dialog.Show();
    const HWND drives = windowOf(dialog.Drive1);
    SendMessageW(drives, CB_SHOWDROPDOWN, TRUE, 0);
    ask(windowOf(dialog), WM_SETTINGCHANGE);
    EXPECT_TRUE(ask(drives, CB_GETDROPPEDSTATE));
}

/// Returns a window's class, text, styles, font, width inside its edges, and places inside and
/// outside them, in pixels. Those of forms and pages depend on the height of the system's bars.
std::string lookOf(HWND window) {
    wchar_t kind[40] = {};
    GetClassNameW(window, kind, std::size(kind));
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(ask(window, WM_GETFONT)), sizeof font, &font);
    RECT place = placeOf(window), inside;
    POINT start{};
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    MapWindowPoints(window, GetParent(window), &start, 1);
    GetClientRect(window, &inside);
    std::ostringstream look;
    look << platform::narrow(kind) << '|' << textOf(window) << '|' << std::hex
         << GetWindowLongW(window, GWL_STYLE) << ' ' << GetWindowLongW(window, GWL_EXSTYLE) << '|'
         << std::dec << platform::narrow(font.lfFaceName) << ' ' << font.lfHeight << ' '
         << int{font.lfItalic} << ' ' << ask(window, LB_GETITEMHEIGHT) << '|' << inside.right;
    if (std::regex_match(kind, std::wregex(L"Button|ComboBox|Edit|ListBox|Static")))
        look << ' ' << inside.bottom << " at " << start.x << ' ' << start.y << '|' << place.left
             << ' ' << place.top << ' ' << place.right << ' ' << place.bottom;
    return std::regex_replace(look.str(), std::regex("\r\n"), "\\n");
}

TEST_F(Windows, FormsLookAsAgreedAndGrowWithTheSystemsTexts) {
    std::string looks;
    const auto add = [](HWND window, LPARAM looks) -> BOOL {
        *reinterpret_cast<std::string*>(looks) += lookOf(window) + '\n';
        return TRUE;
    };
    const std::vector<forms::Form*> all = everyForm(application, program);
    for (forms::Form* shown : all)
        shown->Show();
    const HDC drawn = GetDC(windowOf(*all[1]));
    all[1]->Refresh();
    EXPECT_EQ(GetPixel(drawn, 0, 0), RGB(0, 0, 128));
    for (const int y : {17, 40, 70, 100, 130})
        for (int x = 17; x < 470; x += 6)
            looks += GetGValue(GetPixel(drawn, x, y)) > 128 ? '.' : '#';  // the picture
    looks += '\n';
    const RECT splash = placeOf(windowOf(*all[1]));
    EXPECT_NEAR(splash.bottom - splash.top, 294, 4);
    EXPECT_NEAR(splash.left + splash.right, GetSystemMetrics(SM_CXSCREEN), 2);
    EXPECT_NEAR(splash.top + splash.bottom, GetSystemMetrics(SM_CYSCREEN), 2);
    for (int tab = 1; tab <= 4; ++tab)  // creates the windows in its panel
        dynamic_cast<console::frmConsole&>(*all[0]).tbsOptions.SelectedItem = tab;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    std::wcscpy(metrics.lfMessageFont.lfFaceName, L"Tahoma");
    for (const int height : {-12, -18, -48, -8, -12}) {
        metrics.lfMessageFont.lfHeight = height;
        metrics.lfMessageFont.lfItalic = looks.empty();
        SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        for (forms::Form* shown : all) {
            ask(windowOf(*shown), WM_SETTINGCHANGE);
            looks += lookOf(windowOf(*shown)) + '\n';
            EnumChildWindows(windowOf(*shown), add, reinterpret_cast<LPARAM>(&looks));
        }
        EXPECT_EQ((std::vector<int>{placeOf(windowOf(*all[0])).left, all[0]->Left, all[0]->Width}),
                  (std::vector<int>{67, 1000, 6500}));
    }
    expectAgreed("windows.txt", looks);
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

}  // namespace
