#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "forms/application.h"
#include "forms/controls.h"

namespace forms {

/// The fixed properties of a form's window.
struct FormStyle {
    std::string caption = {};
    std::string accessibleName = {};      ///< read by screen readers where it has no caption
    Place place = {};                     ///< in twips; left and top are used only if not centred
    bool sizable = false;                 ///< with minimise and maximise buttons
    bool bare = false;                    ///< without a title bar or a task bar entry
    bool centred = true;                  ///< on the screen; on its owner where it has one
    std::uint32_t background = noColour;  ///< 0xRRGGBB

    static constexpr std::uint32_t noColour = 0xffffffff;
};

/// Bits of Form_KeyDown's `shift`.
enum ShiftMask { shiftMask = 1, ctrlMask = 2, altMask = 4 };

enum class WindowState { Normal, Minimised, Maximised };

/// A window. Application::load creates it, gives it a peer and runs its Form_Load; Unload ends it.
/// Left, Top, Width and Height are the window's, in twips.
class Form : public Container {
  public:
    Form(Application& application, std::string name, const FormStyle& style);

    const FormStyle style;
    forms::WindowState WindowState = forms::WindowState::Normal;
    bool KeyPreview = false;  ///< the form gets keys before the focused control

    /// Shows the form and returns at once.
    void Show();
    /// Shows the form modally above its owner; returns when the form has been unloaded.
    void ShowModal(Form& owner);
    /// Paints the form immediately, without the message loop.
    void Refresh();
    /// Runs Form_Unload and ends the form. The object lives until the running handlers have
    /// returned.
    void Unload();
    [[nodiscard]] bool unloaded() const { return unloaded_; }

    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    virtual void Form_Activate() {}
    virtual void Form_KeyDown(int /*keyCode*/, int /*shift*/) {}
    virtual void Form_KeyPress(int /*keyAscii*/) {}

    // The user's actions on the window.
    /// The window became active. Does nothing if the same form was active before, as when the user
    /// comes back from a message or another program.
    void activate();
    void keyDown(int keyCode, int shift);
    void keyPress(int keyAscii);
    /// Enter: presses the default button. False if there is no usable one.
    bool pressDefault();
    /// Esc: presses the cancel button. False if there is no usable one.
    bool pressCancel();
    /// Finds the control with this mnemonic (upper case): an item of the menu bar, or else the next
    /// control in tab order after `after`, wrapping around. Null if there is none.
    Control* mnemonicTarget(char letter, const Control* after);
    /// The window's close box.
    void close();
    /// The window was moved, sized, minimised or maximised; lengths in twips.
    void moved(const Place& place, forms::WindowState state);

    Form& form() override { return *this; }
    void accept(ControlVisitor& /*visitor*/) override {}
    Application& application() { return application_; }
    /// True if the form has a menu bar.
    [[nodiscard]] bool hasMenu() const;
    /// Returns the control with this full name, or null.
    Control* find(const std::string& fullName);

    void attachWindow(std::unique_ptr<WindowPeer> window) { window_ = std::move(window); }
    WindowPeer* window() { return window_.get(); }

    void changed(Effect effect) override;

  private:
    friend class Application;
    bool press(const bool Control::*which);

    Application& application_;
    std::unique_ptr<WindowPeer> window_;
    bool unloaded_ = false;
};

}  // namespace forms
