#include "win32_windows.h"
// After <windows.h>, which it needs.
#include <dlgs.h>
#include <shlobj.h>

#include <cstring>
#include <cwchar>
#include <span>
#include <sstream>

#include "platform/windows/win32/message_box.h"
#include "platform/windows/win32/units.h"

using namespace fakes;

namespace {

TEST_F(Windows, KeysReachTheFormThenTheModel) {
    const auto& panel = form.compile;
    form.tbsOptions.SelectedItem = 3;
    form.play.chkPlayback.click();  // disables the first player
    std::string heard;
    logHandlers(form, heard);
    // A posted message holds no keys down.
    for (const auto& [keys, tab] : {std::pair(std::vector{VK_CONTROL}, 4),
                                    {{VK_CONTROL}, 1},
                                    {{VK_CONTROL, VK_SHIFT}, 4},
                                    {{VK_MENU}, 4},
                                    {{}, 4}}) {
        BYTE state[256] = {};
        for (const int key : keys)
            state[key] = 0x80;
        SetKeyboardState(state);
        press(VK_TAB);
        EXPECT_EQ(form.tbsOptions.SelectedItem, tab);
    }
    heard.clear();
    const std::tuple<int, const forms::Control&, UINT, WPARAM, const char*> rows[] = {
        {3, form.play.optPlayer(1), WM_KEYDOWN, VK_UP, "optPlayer(2) optPlayer(2)"},
        {3, form.play.optPlayer(2), WM_KEYDOWN, VK_RIGHT, "optPlayer(1) optPlayer(1)"},
        {2, panel.txtFname, WM_KEYDOWN, 'A', "txtFname txtFname"},
        {2, panel.txtFname, WM_KEYDOWN, VK_RETURN, "btnCompile txtFname"},
        {2, panel.btnBrowse, WM_KEYDOWN, VK_RETURN, "btnBrowse btnBrowse"},
        {2, panel.optFormat(0), WM_KEYDOWN, VK_TAB, "chkDebug"},
        {2, panel.optCharset(0), WM_KEYDOWN, VK_DOWN, "optCharset(1) optCharset(1)"},
        {2, panel.txtFname, WM_SYSCHAR, 'd', "chkDebug chkDebug"},
        {2, panel.txtFname, WM_SYSCHAR, 0x400 + 'd', "txtFname"},
        {2, panel.txtFname, WM_SYSKEYDOWN, VK_RETURN, "txtFname"},
        {2, panel.txtFname, WM_SYSCHAR, 'P', "optFormat(2) optFormat(2)"}};
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
    form.compile.optFormat(2).parent()->Enabled = false;
    press('A');
    EXPECT_EQ(win32::ControlPeer::of(GetFocus())->control().name, "optEditor") << "is next";
}

TEST_F(Windows, ADialogShowsWhatEnterPressesAndEscEndsIt) {
    const auto isDefault = [](HWND button) {
        return (GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    };
    soon([&] {
        EXPECT_FALSE(IsWindowEnabled(window()));
        const RECT own = placeOf(windowOf(application.Forms(1))), place = placeOf(window());
        EXPECT_NEAR(own.left + own.right, place.left + place.right, 2);
        EXPECT_NEAR(own.top + own.bottom, place.top + place.bottom, 2);
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
    EXPECT_EQ(GetActiveWindow(), window());
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
    const std::string cave = platform::narrow((before / "cave.kel").wstring());
    const std::tuple<std::string, const wchar_t*, int, std::string> rows[] = {
        {"cave.kel", L"cave.kel", IDCANCEL, ""},
        {cave, L"cave.kel", IDOK, cave},
        {"c|b?", L"", IDCANCEL, ""},
        {std::string(261, 'x'), L"", IDCANCEL, ""}};
    for (const auto& [offered, shown, button, chosen] : rows) {
        soon([&, shown = shown, button = button] {
            const HWND dialog = FindWindowW(nullptr, L"title");
            wchar_t name[300] = {}, filter[80] = {};
            GetDlgItemTextW(dialog, cmb13, name, std::size(name));
            GetDlgItemTextW(dialog, cmb1, filter, std::size(filter));
            EXPECT_STREQ(name, shown);
            EXPECT_STREQ(filter, L"Games");
            EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, chx1))) << "to open it read-only";
            EXPECT_EQ(textOf(GetDlgItem(dialog, IDOK)), "&Open");
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), window());
            fs::current_path(fs::current_path().root_path());
            PostMessageW(dialog, WM_COMMAND, button, 0);
        });
        EXPECT_EQ(toolkit.chooseFile(form, {"title", "Games|*.k*|All|*.*", offered}), chosen);
        EXPECT_EQ(fs::current_path(), before);
    }
}

TEST_F(Windows, AWindowMovedByTheUserComesBackWithoutDriftAndIsSavedAtLogOff) {
    form.tbsOptions.SelectedItem = 2;
    form.Height = 6000;
    ShowWindow(window(), SW_MINIMIZE);
    EXPECT_EQ(form.WindowState, forms::WindowState::Minimised);
    ShowWindow(window(), SW_RESTORE);
    RECT suggested = placeOf(window());
    const int dpi = MulDiv(suggested.right - suggested.left, 1440, form.Width);
    ++suggested.right;  // the system rounds
    SendMessageW(window(), WM_DPICHANGED, 0, reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ((std::vector<int>{form.Left, form.Width, form.Height}),
              (std::vector<int>{1000, 6500, 6000}));
    ShowWindow(window(), SW_MAXIMIZE);
    const RECT whole{0, 0, 700, 690};
    SendMessageW(window(), WM_DPICHANGED, 0, reinterpret_cast<LPARAM>(&whole));
    EXPECT_EQ(placeOf(window()).bottom, 690);
    ShowWindow(window(), SW_RESTORE);
    SetWindowPos(window(), nullptr, 101, 50, 400, 500, SWP_NOZORDER);
    for (const int panel : {0, 1})
        EXPECT_LT(placeOf(windowOf(form.picOptions(panel))).right, 501);
    EXPECT_EQ((std::vector<int>{form.Left, form.Width}),
              (std::vector<int>{1010, MulDiv(400, 1440, dpi)}));
    int ends[3] = {};
    SendMessageW(windowOf(form.sbStatusBar), SB_GETPARTS, 3, reinterpret_cast<LPARAM>(ends));
    EXPECT_LT(ends[2], 400);
    SetWindowPos(window(), nullptr, 202, 50, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    EXPECT_EQ(form.Left, 2020);
    runtime.whileBoxIsOpen = [this] {
        EXPECT_EQ(ask(window(), WM_QUERYENDSESSION), TRUE);
        ask(window(), WM_ENDSESSION);
        EXPECT_FALSE(form.unloaded()) << "the session continues";
        SendMessageW(window(), WM_ENDSESSION, TRUE, 0);
    };
    press(VK_RETURN);
    EXPECT_EQ(runtime.settings["MainLeft"], "2020");
    EXPECT_EQ(application.Count(), 0);
    win32::runLoop([] { return true; });
    MSG next;
    EXPECT_TRUE(PeekMessageW(&next, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE)) << "for outer loops";
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
    EXPECT_EQ(ask(tooltipsOf(window()), TTM_GETTOOLCOUNT), 7);
    EXPECT_GT(ask(tooltipsOf(window()), TTM_GETMAXTIPWIDTH), 300);
    EXPECT_TRUE(GetWindowLongW(tooltipsOf(window()), GWL_STYLE) & TTS_NOPREFIX);

    auto& dialog = application.load<dialogs::frmIncludeList>(program);
    dialog.Show();
    auto& list = dialog.List1;
    list.AddItem("c:\\lib");
    list.AddItem("c:\\" + std::string(200, 'x'));
    const auto tooltipsAt = [&](int row) {
        const LRESULT height = ask(windowOf(list), LB_GETITEMHEIGHT);
        SendMessageW(windowOf(list), WM_MOUSEMOVE, 0, MAKELPARAM(9, row * height + 2));
        return ask(tooltipsOf(windowOf(dialog)), TTM_GETTOOLCOUNT);
    };
    const LRESULT others = tooltipsAt(0);
    EXPECT_EQ(tooltipsAt(1), others + 1);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    SendMessageW(tooltipsOf(windowOf(dialog)), TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_TRUE(tool.uFlags & TTF_SUBCLASS) << "it notices the mouse itself";
    EXPECT_EQ(tooltipsAt(2), others);
    const HDC device = GetDC(windowOf(list));
    SelectObject(device, reinterpret_cast<HFONT>(ask(windowOf(list), WM_GETFONT)));
    RECT room;
    GetClientRect(windowOf(list), &room);
    room.right -= 2 * win32::pixels(30, 144);
    SIZE size{};
    for (std::string text = "c:\\"; size.cx <= room.right; text += 'x') {
        GetTextExtentPoint32W(device, platform::wide(text).c_str(), std::ssize(text), &size);
        list.setList(1, text);
        tooltipsAt(0);
        EXPECT_EQ(tooltipsAt(1) > others, size.cx > room.right) << text;
    }
    ReleaseDC(windowOf(list), device);
}

TEST_F(Windows, OtherSettingsOfTheSystemLeaveAnOpenListOpen) {
    runtime.tree["d:\\"] = {};
    auto& dialog = application.load<dialogs::frmIncludeAdd>(program, form.compile.lstInclude);
    dialog.txtFolder.Text = "d:\\";
    dialog.Show();
    const HWND drives = windowOf(dialog.Drive1);
    SendMessageW(drives, CB_SHOWDROPDOWN, TRUE, 0);
    ask(windowOf(dialog), WM_SETTINGCHANGE);
    EXPECT_TRUE(ask(drives, CB_GETDROPPEDSTATE));
    SendMessageW(drives, CB_SETCURSEL, 0, 0);
    EXPECT_EQ(dialog.Drive1.Drive(), "d:") << "that of the text, and not chosen yet";
    SetFocus(drives);
    press(VK_ESCAPE);
    EXPECT_EQ(ask(drives, CB_GETCURSEL), 1);
    EXPECT_EQ(application.Count(), 2) << "only the list is closed";
    SendMessageW(drives, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(drives, CB_SETCURSEL, 0, 0);
    press(VK_RETURN);
    EXPECT_EQ(dialog.Drive1.Drive(), "c:");
    EXPECT_FALSE(ask(drives, CB_GETDROPPEDSTATE));
    EXPECT_TRUE(GetClassLongPtrW(windowOf(dialog), GCLP_HICON) &&
                GetClassLongPtrW(windowOf(dialog), GCLP_HICONSM));
    ask(windowOf(dialog), WM_CLOSE);
    EXPECT_EQ(application.Count(), 1);
    EXPECT_FALSE(IsWindow(drives));
    static int told = 0;
    SetWindowSubclass(
        windowOf(form.tbsOptions),
        [](HWND tabs, UINT message, WPARAM first, LPARAM second, UINT_PTR, DWORD_PTR) {
            told += message == WM_SYSCOLORCHANGE;
            return DefSubclassProc(tabs, message, first, second);
        },
        99, 0);
    ask(window(), WM_SYSCOLORCHANGE);
    EXPECT_EQ(told, 1) << "the system tells only the form";
}

// Colours of the system, and values for them that all differ.
const int parts[] = {COLOR_3DFACE,   COLOR_WINDOW,   COLOR_WINDOWTEXT,    COLOR_BTNTEXT,
                     COLOR_GRAYTEXT, COLOR_3DSHADOW, COLOR_HIGHLIGHTTEXT, COLOR_3DHILIGHT};
const COLORREF colours[] = {0xd0d1d2, 0xf0f1f2, 0x010203, 0x310203,
                            0x717273, 0xa1a2a3, 0xf7f8f9, 0xe1e2e3};

/// Returns the colours of a window: for a text those in the middle of its upper and lower edge,
/// after "+" which of the system's it has, and those that fill most of it. Shades of a theme may
/// equal the last of the system's.
std::string coloursOf(HWND window, int most) {
    const int width = win32::widthOf(placeOf(window)), height = win32::heightOf(placeOf(window));
    const HDC drawn = GetWindowDC(window);
    std::map<COLORREF, int> counts;
    for (int at = 0; at < width * height; at += 3)
        ++counts[GetPixel(drawn, at % width, at / width)];
    std::ostringstream found;
    if (most > 1)
        found << std::hex << ' ' << GetPixel(drawn, width / 2, 0) << ' '
              << GetPixel(drawn, width / 2, height - 1) << std::dec;
    ReleaseDC(window, drawn);
    for (const COLORREF& colour : std::span(colours).first(7))
        if (counts.contains(colour)) found << " +" << parts[&colour - colours];
    for (; most > 0 && !counts.empty(); --most) {
        const auto commonest =
            std::ranges::max_element(counts, {}, [](const auto& one) { return one.second; });
        found << ' ' << std::hex << commonest->first;
        counts.erase(commonest);
    }
    return found.str();
}

/// Returns the texts of a menu's items, each before those of its own menu.
std::string textsOf(HMENU menu) {
    std::string texts;
    for (int item = 0; item < GetMenuItemCount(menu); ++item) {
        wchar_t text[80] = {};
        GetMenuStringW(menu, item, text, std::size(text), MF_BYPOSITION);
        texts += platform::narrow(text) + '/' + textsOf(GetSubMenu(menu, item));
    }
    return texts;
}

/// Returns a window's class, text, styles, font, width inside its edges, places inside and outside
/// them, in pixels, "!" if it has another mouse pointer than an arrow, a form's menus, and if it is
/// on the screen, a dialog's height and the colours. Places of forms and pages depend on the height
/// of the system's bars.
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
    const HCURSOR arrow = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    if (reinterpret_cast<HCURSOR>(GetClassLongPtrW(window, GCLP_HCURSOR)) != arrow) look << '!';
    if (GetAncestor(window, GA_ROOT) == window) look << '|' << textsOf(GetMenu(window));
    if (IsWindowVisible(window) && placeOf(GetAncestor(window, GA_ROOT)).right < 1100)
        look << '|' << (GetWindowLongW(window, GWL_STYLE) & WS_POPUP ? inside.bottom : 0)
             << coloursOf(window,
                          std::regex_match(kind, std::wregex(L"Edit|ListBox|Static")) ? 2 : 1);
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
    ReleaseDC(windowOf(*all[1]), drawn);
    const RECT splash = placeOf(windowOf(*all[1]));
    EXPECT_NEAR(splash.bottom - splash.top, 438, 4);
    EXPECT_NEAR(splash.left + splash.right, GetSystemMetrics(SM_CXSCREEN), 2);
    EXPECT_NEAR(splash.top + splash.bottom, GetSystemMetrics(SM_CYSCREEN), 2);
    auto& first = dynamic_cast<console::frmConsole&>(*all[0]);
    first.compile.lstInclude.AddItem("c:\\lib");
    first.compile.lstInclude.ListIndex = 0;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    std::wcscpy(metrics.lfMessageFont.lfFaceName, L"Tahoma");
    SetSysColors(std::size(parts), parts, colours);
    int tab = 0;
    for (const int height : {-12, -18, -48, -8, -12}) {
        metrics.lfMessageFont.lfHeight = height;
        metrics.lfMessageFont.lfItalic = looks.empty();
        SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        for (forms::Form* shown : all) {
            RECT place = placeOf(windowOf(*shown));
            SendMessageW(windowOf(*shown), height == -48 ? WM_DPICHANGED : WM_SETTINGCHANGE, 0,
                         height == -48 ? reinterpret_cast<LPARAM>(&place) : 0);
            first.tbsOptions.SelectedItem = 1 + tab % 4;
            SetForegroundWindow(windowOf(*shown));
            shown->Refresh();
            looks += lookOf(windowOf(*shown)) + '\n';
            EnumChildWindows(windowOf(*shown), add, reinterpret_cast<LPARAM>(&looks));
        }
        ++tab;
        EXPECT_EQ((std::vector<int>{placeOf(windowOf(first)).left, first.Left, first.Width}),
                  (std::vector<int>{100, 1000, 6500}));
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
