#include <algorithm>

#include "forms/file_lists.h"
#include "platform/windows/win32/background.h"
#include "platform/windows/win32/fit_font.h"
#include "platform/windows/win32/peers.h"
#include "win32_windows.h"

namespace {

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
    void visit(forms::PictureBox& panel) override {
        EXPECT_EQ(win32::backgroundOf(panel, 7), 7u) << "the colour of a tab's page";
    }
    void visit(forms::StatusBar& bar) override {
        int ends[3] = {};
        SendMessageW(window, SB_GETPARTS, std::size(ends), reinterpret_cast<LPARAM>(ends));
        wchar_t shown[80] = {}, today[80] = {};
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, today,
                        std::size(today), nullptr);
        SendMessageW(window, SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(shown));
        EXPECT_STREQ(shown, today);
        SendMessageW(window, SB_GETTEXTW, 2, reinterpret_cast<LPARAM>(shown));
        EXPECT_TRUE(std::regex_match(shown, std::wregex(L"\\d+:\\d\\d( [AP]M)?")));
        const win32::TextMeter meter(reinterpret_cast<HFONT>(ask(window, WM_GETFONT)),
                                     win32::layoutDpi(bar.form(), windowOf(bar.form())));
        EXPECT_EQ(ends[2] - ends[1], meter.width(platform::narrow(shown)) + meter.scaled(16));
    }
    void visit(forms::Button&) override { expectClick(window, BM_CLICK, 0); }
    void visit(forms::MenuItem& item) override {
        const HWND form = windowOf(item.form());
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
            const RECT place = placeOf(window);
            const LPARAM band = MAKELPARAM(place.left + 9, place.top + 3);
            EXPECT_TRUE(box.multiLine || SendMessageW(window, WM_NCHITTEST, 0, band) == HTCLIENT);
            SendMessageW(window, EM_SETSEL, 0, -1);
            SendMessageW(window, message, 0, reinterpret_cast<LPARAM>(typed.c_str()));
            EXPECT_EQ(box.Text(), expected);
            EXPECT_TRUE(!box.Visible || textOf(window) == expected);
            if (box.usable() && expected == "y") {
                EXPECT_EQ(ask(window, EM_GETSEL), MAKELONG(1, 1));
            }
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
        list.Path = "c:\\tales\\of\\the\\sea";
        EXPECT_EQ(ask(window, LB_GETTOPINDEX), 1) << "three rows above the open folder";
        for (const int row : {0, 2}) {
            SetFocus(window);
            SendMessageW(window, LB_SETCURSEL, row, 0);
            Windows::press(VK_RETURN);
            EXPECT_EQ(ask(window, LB_GETCOUNT), std::ssize(list.rows()));
            EXPECT_EQ(ask(window, LB_GETCURSEL), list.openRow());
            EXPECT_EQ(ask(window, LB_GETTOPINDEX), 0);
        }
        EXPECT_EQ(list.Path(), "c:\\tales");
        EXPECT_EQ(rowText(1) + rowText(2), "   tales      lib");
    }
    void visit(forms::TabStrip& tabs) override {
        wchar_t caption[80] = {};
        TCITEMW item{TCIF_TEXT, 0, 0, caption, std::size(caption), 0, 0};
        for (int tab = 0; tab < std::ssize(tabs.Tabs); ++tab) {
            SendMessageW(window, TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
            EXPECT_EQ(platform::narrow(caption), tabs.Tabs[tab].caption);
        }
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
    runtime.tree = {{"c:\\", {"nwb", "tales"}},
                    {"c:\\nwb", {}},
                    {"c:\\tales", std::vector<std::string>(30, "lib")},
                    {"c:\\tales\\of\\the\\sea", std::vector<std::string>(30, "log")},
                    {"d:\\", {}}};
    for (forms::Form* shown : fakes::everyForm(application, program)) {
        shown->Show();
        fakes::onEachPage(*shown, [shown] {
            int id = win32::firstId;
            for (forms::Control* control : shown->allControls())
                Tool().meet(*control, id++);
        });
    }
}

}  // namespace
