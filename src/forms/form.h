#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "forms/application.h"
#include "forms/controls.h"

namespace forms {

/// What a form looks like as a window.
struct FormStyle {
    std::string caption = {};
    std::string spoken = {};  ///< what a screen reader calls it, where it has no caption
    Place place = {};         ///< in twips; left and top count only where the form is not centred
    bool sizable = false;     ///< with minimise and maximise buttons
    bool bare = false;        ///< without a title bar, and out of the task bar
    bool centred = true;      ///< on the screen; on its owner where it has one
    bool keyPreview = false;  ///< the form sees keys before the control that has the focus
    std::uint32_t background = noColour;  ///< 0xRRGGBB

    static constexpr std::uint32_t noColour = 0xffffffff;
};

/// Shift states as Form_KeyDown gets them.
enum ShiftMask { shiftMask = 1, ctrlMask = 2, altMask = 4 };

enum class WindowState { Normal, Minimised, Maximised };

/// A window. Application::load makes one, runs its Form_Load and gives it a peer; Unload ends it.
/// Left, Top, Width and Height are the window's own, in twips.
class Form : public Container {
  public:
    Form(Application& application, std::string name, const FormStyle& style);

    const FormStyle style;
    forms::WindowState WindowState = forms::WindowState::Normal;

    /// Shows the form and returns at once.
    void Show();
    /// Shows the form modally above its owner; returns when the form has been unloaded.
    void ShowModal(Form& owner);
    /// Paints the form at once, without a turn of the message loop.
    void Refresh();
    /// Runs Form_Unload and ends the form. The object itself lives on until the running handlers
    /// have returned.
    void Unload();
    [[nodiscard]] bool unloaded() const { return unloaded_; }

    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    virtual void Form_Activate() {}
    virtual void Form_KeyDown(int /*keyCode*/, int /*shift*/) {}
    virtual void Form_KeyPress(int /*keyAscii*/) {}

    // The entries for what a user does to the window.
    /// The window has become active. Nothing happens where the user comes back to the same form
    /// from a message or another program.
    void activate();
    void keyDown(int keyCode, int shift);
    void keyPress(int keyAscii);
    /// Enter: presses the default button that can be used. False if there is none.
    bool pressDefault();
    /// Esc: presses the cancel button. False if there is none.
    bool pressCancel();
    /// The control that Alt and the letter (upper case) reach: the item of the menu bar if one has
    /// the letter, else the next control behind `after`, in order of tabbing and round; null if
    /// there is none.
    Control* mnemonicTarget(char letter, const Control* after);
    /// The window's close box.
    void close();
    /// The window has been moved, sized, minimised or maximised; lengths in twips.
    void moved(const Place& place, forms::WindowState state);

    Form& form() override { return *this; }
    void accept(ControlVisitor& /*visitor*/) override {}
    Application& application() { return application_; }
    /// True if the form has a menu bar.
    [[nodiscard]] bool hasMenu() const;
    /// The control with the full name, or null.
    Control* find(const std::string& fullName);

    void attachWindow(std::unique_ptr<WindowPeer> window) { window_ = std::move(window); }
    WindowPeer* window() { return window_.get(); }

    void changed(Effect effect) override;

  private:
    friend class Application;
    bool press(const bool Button::*which);

    Application& application_;
    std::unique_ptr<WindowPeer> window_;
    bool unloaded_ = false;
};

}  // namespace forms
