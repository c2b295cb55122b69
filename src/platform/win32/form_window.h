#pragma once

#include <functional>
#include <vector>

#include "forms/form.h"
#include "platform/win32/control_peer.h"
#include "platform/win32/keyboard.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Runs the message loop while the condition, asked before each message, holds, or until the
/// program ends.
void runLoop(const std::function<bool()>& goOn);

/// The window behind a form. Left and Top are in pixels of the system's resolution, so that they
/// name the same point wherever the window lies; all other lengths in those of its own screen, and
/// of the size in which the user has the system write.
class FormWindow : public forms::WindowPeer {
  public:
    /// Makes the window, unseen. The form's size, until now that of its client area, becomes that
    /// of the window. The form's controls have peers once it has been shown.
    explicit FormWindow(forms::Form& form);
    ~FormWindow() override;
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    void show() override;
    void showModal(forms::Form& owner) override;
    void hide() override;
    void refresh() override;
    void update() override;
    void focus(const forms::Control& control) override;

    /// The form's window behind a window of the system, or null.
    static FormWindow* of(HWND window);
    /// True while the window is that of a form that has not been unloaded.
    static bool isOpen(HWND window);

    [[nodiscard]] HWND handle() const { return window_; }
    Keyboard& keyboard() { return keyboard_; }

  private:
    // A bug ends the program here: the system lets no exception through.
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first,
                                      LPARAM second) noexcept;
    LRESULT handle(UINT message, WPARAM first, LPARAM second);
    static HWND makeWindow(const forms::Form& form);

    void takeDefinedSize();
    void takeStyle();
    void restyle();
    void fitControls();
    void centre();
    void report();
    void close();
    void endSession();
    void choose(int menuItem);

    forms::Form& form_;
    HWND window_;
    Keyboard keyboard_;
    int dpi_;  ///< in which the form is laid out
    Font font_;
    Style style_;
    std::vector<ControlPeer*> peers_;  ///< those that have been made, empty until the first show
    std::size_t withTooltips_ =
        0;  ///< of the peers; the mouse moving over the window adds the rest
    COLORREF background_ = 0;
    forms::Place given_;  ///< the place that the program gave the window last
    HWND owner_ = nullptr;
};

}  // namespace win32
