#pragma once

#include "forms/form.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// What the keyboard does on a form: the form's own sight of each key, mnemonics, the default and
/// the cancel button; and which of its controls has the focus.
class Keyboard {
  public:
    /// Both must outlive the keyboard.
    Keyboard(forms::Form& form, HWND window) : form_(form), window_(window) {}

    /// Deals with a message for the form's window or a window inside it, before that gets it. True
    /// if the message has been dealt with. The form may have ended then.
    bool take(MSG& message);

    /// Brings the focus where it belongs, after a handler or a change of windows may have made the
    /// control unusable that had it.
    void settle();
    static void focus(const forms::Control& control);

  private:
    bool keyDown(MSG& message);
    bool enter(const MSG& message);
    bool escape();
    bool arrow(MSG& message, int step);
    bool mnemonic(wchar_t letter);
    /// Lets the form see a character. False if the form has ended by it.
    bool keyPress(WPARAM character);

    [[nodiscard]] forms::Control* focused() const;
    [[nodiscard]] forms::Control* nextFocus() const;
    void markDefault();

    forms::Form& form_;
    HWND window_;
    forms::Control* last_ = nullptr;  ///< the control that had the focus last
};

}  // namespace win32
