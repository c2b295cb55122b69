#include <random>

#include "endurance.h"
#include "forms/file_lists.h"
#include "platform/win32/common_controls.h"
#include "platform/win32/form_window.h"
#include "platform/win32/peers.h"
#include "platform/win32/win32_toolkit.h"
#include "platform/windows/wide.h"
#include "rules.h"

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

/// True if the window shows what the control holds, and Tab reaches one option of each group.
bool agrees(const forms::Control& control, HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    if (control.Enabled == ((style & WS_DISABLED) != 0)) return false;
    if (control.inSight() != ((style & WS_VISIBLE) != 0)) return false;
    const bool ticked = ask(window, BM_GETCHECK) == BST_CHECKED;
    if (const auto* box = dynamic_cast<const forms::CheckBox*>(&control))
        return (box->Value == 1) == ticked;
    if (const auto* option = dynamic_cast<const forms::OptionButton*>(&control))
        return option->Value == ticked && option->Value == ((style & WS_TABSTOP) != 0);
    if (const auto* text = dynamic_cast<const forms::TextBox*>(&control))
        return !text->Visible || text->Text() == textOf(window);
    if (const auto* list = dynamic_cast<const forms::ListBox*>(&control))
        return list->ListIndex == ask(window, LB_GETCURSEL);
    if (const auto* tabs = dynamic_cast<const forms::TabStrip*>(&control))
        return tabs->SelectedItem - 1 == ask(window, TCM_GETCURSEL);
    const auto* list = dynamic_cast<const forms::DriveList*>(&control);
    return !list || list->drives().at(ask(window, CB_GETCURSEL)) == list->Drive();
}

HWND windowOf(const forms::Control& control) {
    return win32::peerOf(&control)->window();
}

struct Windows : testing::Test {
    struct Toolkit : win32::Win32Toolkit {
        std::string fileChosen;
        std::string chooseFile(forms::Form&, const forms::FileQuestion&) override {
            return fileChosen;
        }
    };

    FakeRuntime runtime;
    Toolkit toolkit;
    forms::Application application{
        toolkit, [this](const std::string& text) { runtime.rtcMsgBox(text, 48, ""); }};
    core::Program program{runtime, application, {}};
    console::frmConsole* form = nullptr;

    void SetUp() override {
        application.dispatch([this] {
            application
                .load<docs::frmSplash>([this] {
                    form = &application.load<console::frmConsole>(program);
                    form->Show();
                })
                .Show();
        });
        auto& splash = dynamic_cast<docs::frmSplash&>(application.Forms(0));
        const HWND button = windowOf(splash.Command1);
        ask(button, BM_CLICK);  // the button ends while it handles the message
        EXPECT_FALSE(IsWindow(button));
    }
    ~Windows() override {
        MSG quit;
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }

    /// A message for the window with the focus, and all that follows, with the modifier down.
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
        return dynamic_cast<win32::FormWindow&>(*form->window()).handle();
    }
};

TEST_F(Windows, KeysReachTheModel) {
    press(WM_KEYDOWN, VK_TAB, VK_CONTROL);
    EXPECT_EQ(form->tbsOptions.SelectedItem, 2);
    press(WM_KEYDOWN, VK_TAB);
    press(WM_CHAR, 'q');
    EXPECT_EQ(form->compile.txtFname.Text(), "q");
    press(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(runtime.boxes.back().text.substr(0, 11), "Kelm source");
    press(WM_KEYDOWN, VK_TAB, VK_CONTROL);
    EXPECT_EQ(GetFocus(), windowOf(form->play.txtFnameP));
    press(WM_SYSCHAR, 'r', VK_MENU);
    EXPECT_EQ(form->play.chkPlayback.Value, 1);
    SetFocus(windowOf(form->play.optPlayer(1)));
    press(WM_KEYDOWN, VK_UP);
    EXPECT_EQ(form->play.player(), 2) << "round, past an option that is disabled";
}

TEST_F(Windows, AWindowMovedByTheUserIsReportedAndComesBackWithoutDrift) {
    EXPECT_EQ((std::vector<int>{form->Left, form->Width}), (std::vector<int>{1000, 6500}));
    SetWindowPos(window(), nullptr, 101, 50, 600, 500, SWP_NOZORDER);
    EXPECT_EQ((std::vector<int>{form->Left, form->Width}), (std::vector<int>{1515, 9000}));
    form->tbsOptions.SelectedItem = 2;
    runtime.whileBoxIsOpen = [this] {
        EXPECT_EQ(ask(window(), WM_QUERYENDSESSION), TRUE);
        ask(window(), WM_ENDSESSION);
        EXPECT_FALSE(form->unloaded()) << "the session goes on";
        SendMessageW(window(), WM_ENDSESSION, TRUE, 0);
    };
    press(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(runtime.settings["MainLeft"], "1515");
    EXPECT_EQ(application.Count(), 0);
}

TEST_F(Windows, ATabTellsItsTooltipAndALetterOfTheMenuBarIsTheMenus) {
    NMTTDISPINFOW asked{};
    asked.hdr = {nullptr, 2, static_cast<UINT>(TTN_GETDISPINFOW)};
    SendMessageW(windowOf(form->tbsOptions), WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&asked));
    ASSERT_NE(asked.lpszText, nullptr);
    EXPECT_EQ(platform::narrow(asked.lpszText), form->tbsOptions.Tabs[2].tooltip);
    form->tbsOptions.SelectedItem = 2;
    EXPECT_EQ(form->mnemonicTarget('F', &form->compile.txtFname), &form->mnuFile);
}

/// A user, or a tool that works the windows for one, who does anything in whatever window is up.
struct WindowsWalk : Windows {
    std::size_t any(std::size_t count) { return random() % count; }

    void work(forms::Form& worked, int most) {
        for (const int end = actions + most; actions < end && !HasFatalFailure();) {
            SCOPED_TRACE("action " + std::to_string(++actions));
            toolkit.fileChosen = names[any(names.size())];
            const int before = modals;
            const auto controls = worked.allControls();
            act(worked, *controls[any(controls.size())]);
            if (worked.unloaded() || HasFatalFailure()) return;
            for (const forms::Control* control : worked.allControls()) {
                const auto* peer = win32::peerOf(control);
                ASSERT_TRUE(!peer || agrees(*control, peer->window())) << control->fullName();
            }
            if (&worked != form) continue;
            rules::expectAll(*form, program.state, modals != before);
            runtime.shells.clear();
            runtime.boxes.clear();
        }
        if (&worked != form) worked.close();
    }

    void act(forms::Form& worked, forms::Control& control) {
        const std::string before = held();
        if (any(3) == 0) {
            strike(worked);
        } else if (dynamic_cast<forms::MenuItem*>(&control)) {
            const auto all = worked.allControls();
            const auto id = std::find(all.begin(), all.end(), &control) - all.begin();
            SendMessageW(window(), WM_COMMAND, win32::firstId + id, 0);
        } else if (win32::peerOf(&control) && any(3) == 0) {
            if (control.usable()) SetFocus(windowOf(control));
            ASSERT_EQ(held(), before) << "the focus on " << control.fullName();
        } else if (win32::peerOf(&control)) {
            touch(control, windowOf(control));
        }
    }

    void strike(const forms::Form& worked) {
        const std::string before = held();
        if (any(2)) {
            press(WM_KEYDOWN, VK_TAB, any(2) ? VK_SHIFT : 0);
            ASSERT_EQ(held(), before);
        } else if (any(2)) {
            press(WM_KEYDOWN, keys[any(keys.size())]);
        } else if (const auto letter = static_cast<char>('A' + any(26));
                   !worked.hasMenu() || (letter != 'F' && letter != 'H')) {
            press(any(2) ? WM_SYSCHAR : WM_CHAR, letter);
        }
    }

    /// What tools send to windows on behalf of their users.
    void touch(forms::Control& control, HWND window) {
        const WPARAM row = any(4);
        if (dynamic_cast<forms::TextBox*>(&control))
            SetWindowTextW(window, platform::wide(toolkit.fileChosen).c_str());
        else if (dynamic_cast<forms::ListBox*>(&control))
            SendMessageW(window, LB_SETCURSEL, row, 0);
        else if (dynamic_cast<forms::DriveList*>(&control))
            SendMessageW(window, CB_SETCURSEL, row, 0);
        else if (dynamic_cast<forms::TabStrip*>(&control))
            SendMessageW(window, any(2) ? TCM_SETCURSEL : TCM_SETCURFOCUS, row, 0);
        else if (!dynamic_cast<forms::Button*>(&control) && any(2))
            SendMessageW(window, BM_SETCHECK, any(2), 0);
        else
            ask(window, BM_CLICK);
    }

    /// All that the program holds.
    std::string held() {
        std::string held;
        for (int open = 0; open < application.Count(); ++open) {
            for (const forms::Control* control : application.Forms(open).allControls()) {
                const auto* box = dynamic_cast<const forms::CheckBox*>(control);
                const auto* option = dynamic_cast<const forms::OptionButton*>(control);
                const auto* text = dynamic_cast<const forms::TextBox*>(control);
                const auto* list = dynamic_cast<const forms::ListBox*>(control);
                held += control->fullName() + (box && box->Value ? " ticked" : "") +
                        (option && option->Value ? " selected" : "") + (text ? text->Text() : "") +
                        (list ? list->Text() : "") + '\n';
            }
        }
        return held;
    }

    /// Works the modal forms that come up inside an action.
    static void CALLBACK watch(HWND, UINT, UINT_PTR, DWORD) {
        forms::Form& top = up->application.Forms(up->application.Count() - 1);
        if (&top == up->worked || &top == up->form) return;
        forms::Form* const below = std::exchange(up->worked, &top);
        ++up->modals;
        up->work(top, 40);
        up->worked = below;
    }

    static inline WindowsWalk* up = nullptr;
    const int seed = endurance::setting("NWBW_SEED", 1);
    std::mt19937 random{static_cast<unsigned>(seed)};
    const std::vector<std::string> names{
        "",           "c:\\games\\cave.kel", "d:\\tool.exe", "d:quest.kelm",
        "a,b\"c.log", "much too long.kel"};
    const std::vector<WPARAM> keys{VK_UP,    VK_DOWN, VK_LEFT,   VK_RIGHT,
                                   VK_SPACE, VK_HOME, VK_RETURN, VK_ESCAPE};
    forms::Form* worked = nullptr;
    int actions = 0;
    int modals = 0;
};

TEST_F(WindowsWalk, MessagesOfAllKindsKeepEveryRule) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    up = this;
    for (const std::string& name : names)
        runtime.files[name];
    form->mnuFileExit.Enabled = false;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, watch);
    const int most = endurance::setting("NWBW_ACTIONS", 500);
    work(*form, most);
    KillTimer(nullptr, timer);
    EXPECT_GT(modals, most / 100);
}

}  // namespace
