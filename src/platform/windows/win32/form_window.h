#pragma once

#include <functional>
#include <vector>

#include "forms/form.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/keyboard.h"
#include "platform/windows/win32/tooltips.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// Runs the message loop until the program ends or `goOn`, called before each message, returns
/// false.
void runLoop(const std::function<bool()>& goOn);

/// The window of a form. Left and Top are in the system's resolution, so that they mean the same
/// point on every screen; all other lengths are in the resolution of the form's layout.
class FormWindow : public forms::WindowPeer {
  public:
    /// Creates the window hidden. The form's size, until now that of its client area, becomes that
    /// of the window. The form's controls get their peers when it is first shown.
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

    /// Returns the form's window that a window of the system belongs to, or null.
    static FormWindow* of(HWND window);
    /// True if the window is that of a form that has not been unloaded.
    static bool isOpen(HWND window);
    /// True while the forms close because the session ends. Nobody may be there to answer a box.
    static bool sessionEnds() { return sessionEnds_; }

    [[nodiscard]] HWND window() const { return window_; }
    Keyboard& keyboard() { return keyboard_; }
    [[nodiscard]] const Tooltips& tooltips() const { return tooltips_; }

  private:
    // noexcept, so that a bug ends the program here: the system lets no exception through.
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first,
                                      LPARAM second) noexcept;
    LRESULT handle(UINT message, WPARAM first, LPARAM second);
    static HWND makeWindow(const forms::Form& form);

    void takeDefinedSize();
    void takeStyle();
    void restyle();
    void systemChanged(UINT message);
    void dpiChanged(const RECT& suggested);
    void fitControls();
    void centre();
    void report();
    void close();
    void endSession();
    void choose(int menuItem);

    static inline bool sessionEnds_ = false;

    forms::Form& form_;
    HWND window_;
    Keyboard keyboard_;
    Tooltips tooltips_;
    int dpi_ = 0;            ///< resolution of the form's layout
    LOGFONTW systemFont_{};  ///< for messages, in the resolution of the screen
    Font font_;
    Style style_;
    std::vector<ControlPeer*> peers_;  ///< those created so far; none until the first show
    /// The number of peers with tooltips. The rest get theirs when the mouse moves over the window.
    std::size_t withTooltips_ = 0;
    COLORREF background_ = 0;
    forms::Place given_;  ///< the place that the program set last
    HWND owner_ = nullptr;
};

}  // namespace win32
