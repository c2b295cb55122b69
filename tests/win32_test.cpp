#include "model.h"
#include "platform/win32/form_window.h"
#include "platform/win32/win32_toolkit.h"

using namespace model;

namespace {

/// True if the window is as usable, visible and ticked as its control.
bool agrees(const forms::Control& control, HWND window) {
    const auto* box = dynamic_cast<const forms::CheckBox*>(&control);
    const auto* option = dynamic_cast<const forms::OptionButton*>(&control);
    return control.Enabled == (IsWindowEnabled(window) != 0) &&
           control.inSight() == ((GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0) &&
           (box ? box->Value == 1 : option && option->Value) ==
               (SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED);
}

struct Windows : testing::Test {
    FakeRuntime runtime;
    win32::Win32Toolkit toolkit;
    console::Workbench workbench{runtime, toolkit};
    console::frmConsole* form = nullptr;

    void SetUp() override {
        workbench.start();
        auto& splash = dynamic_cast<docs::frmSplash&>(workbench.application().Forms(0));
        const HWND button = win32::peerOf(&splash.Command1)->window();
        SendMessageW(button, BM_CLICK, 0, 0);  // the button ends while it handles the message
        EXPECT_FALSE(IsWindow(button));
        form = &dynamic_cast<console::frmConsole&>(workbench.application().Forms(0));
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
};

TEST_F(Windows, KeysReachTheModelAndTheWindowsShowWhatItHolds) {
    press(WM_KEYDOWN, VK_TAB, VK_CONTROL);
    EXPECT_EQ(form->tbsOptions.SelectedItem, 2);
    press(WM_KEYDOWN, VK_TAB);
    press(WM_CHAR, 'q');
    EXPECT_EQ(form->compile.txtFname.Text(), "q");
    press(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(runtime.lastBox().substr(0, 11), "Kelm source");
    press(WM_KEYDOWN, VK_TAB, VK_CONTROL);
    EXPECT_EQ(GetFocus(), win32::peerOf(&form->play.txtFnameP)->window());
    press(WM_SYSCHAR, 'r', VK_MENU);
    EXPECT_EQ(form->play.chkPlayback.Value, 1);
    for (forms::Control* control : form->allControls()) {
        const auto* peer = win32::peerOf(control);
        EXPECT_TRUE(!peer || agrees(*control, peer->window())) << control->fullName();
    }
}

TEST_F(Windows, AWindowMovedByTheUserIsReportedAndComesBackWithoutDrift) {
    const HWND window = dynamic_cast<win32::FormWindow&>(*form->window()).handle();
    EXPECT_EQ((std::vector<int>{form->Left, form->Width}), (std::vector<int>{1000, 6500}));
    SetWindowPos(window, nullptr, 101, 50, 600, 500, SWP_NOZORDER);
    EXPECT_EQ((std::vector<int>{form->Left, form->Width}), (std::vector<int>{1515, 9000}));
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(runtime.settings["MainLeft"], "1515");
}

}  // namespace
