#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Handles the keyboard on a form: the form's own key events, mnemonics, the default and the cancel
/// button. Keeps the focus on a usable control.
class Keyboard {
  public:
    /// Both must outlive the keyboard.
    Keyboard(forms::Form& form, HWND window) : form_(form), window_(window) {}

    /// Handles a message for the form's window or a window inside it, before that gets it. Returns
    /// true if the message is done. The form may not exist any more then.
    bool take(MSG& message);

    /// Moves the focus to a usable control, after a handler or a change of windows may have made
    /// the focused one unusable.
    void settle();
    static void focus(const forms::Control& control);

  private:
    bool keyDown(MSG& message);
    bool enter(const MSG& message);
    bool escape();
    bool arrow(MSG& message, int step);
    bool mnemonic(wchar_t letter);
    /// Passes a character to the form. Returns false if that has ended the form.
    bool keyPress(WPARAM character);

    void showCues() const;

    [[nodiscard]] forms::Control* focused() const;
    [[nodiscard]] forms::Control* nextFocus() const;
    void markDefault();

    forms::Form& form_;
    HWND window_;
    forms::Control* last_ = nullptr;  ///< the control that had the focus last
};

}  // namespace win32
