#pragma once

#include <optional>
#include <string>

#include "forms/control.h"
#include "platform/windows/win32/accessibility.h"
#include "platform/windows/win32/common_controls.h"
#include "platform/windows/win32/fonts.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// The window class and styles of a kind of control.
struct WindowKind {
    const wchar_t* className;
    DWORD style = 0;
    DWORD extendedStyle = 0;
};

/// The settings of the system that the controls of a form use.
struct Style {
    int dpi = 0;                 ///< resolution of the form's layout
    LOGFONTW font{};             ///< of the form
    HFONT sharedFont = nullptr;  ///< a handle of it
    int lineHeight = 0;          ///< of that font, in pixels
    COLORREF tabPage = 0;        ///< colour of a tab strip's page
};

/// Where to create the window of a control.
struct Site {
    HWND parent;
    const Style& style;
    int id;
    bool startsGroup;  ///< the arrow keys do not move from the previous control to this one
};

/// A peer that shows its control as one window inside that of its container. The form's window owns
/// it, so it may outlive the peer until the message that ended the form has been handled.
class ControlPeer : public forms::Peer {
  public:
    ControlPeer(forms::Control& control, const Site& site, const WindowKind& kind);
    ~ControlPeer() override;
    ControlPeer(const ControlPeer&) = delete;
    ControlPeer& operator=(const ControlPeer&) = delete;

    /// Returns the peer of a window inside a form's, or null.
    static ControlPeer* of(HWND window);
    /// Returns the peer whose window is the given one or contains it, below the form's; or null.
    static ControlPeer* around(HWND window, HWND form);

    void update() final;
    /// Applies a new style, except for a font that the control itself sets. Call `update`
    /// afterwards.
    virtual void restyle(const Style& style);

    // Messages that the container's window passes on.
    virtual void command(int /*notification*/) {}
    virtual void notify(const NMHDR& /*notification*/) {}
    virtual void drawItem(const DRAWITEMSTRUCT& /*item*/) {}
    /// True if the container's background shows through the control.
    [[nodiscard]] virtual bool transparent() const { return false; }

    /// Sets the window's name for screen readers.
    void setAccessibleName(const std::string& name) { accessibleName_.emplace(window_, name); }

    /// True if the window itself handles Enter and Esc at the moment.
    [[nodiscard]] virtual bool wantsKeys() const { return false; }
    /// Handles Enter, on a control that takes it.
    virtual void enter() {}
    /// Shows whether Enter presses the control, which only a button does.
    virtual void showDefault(bool /*isDefault*/) {}

    /// A bar along an edge of the form subtracts its own place from the room.
    virtual void takeEdge(RECT& /*room*/) {}
    /// Called when the form's room for pages has changed: its client area without bars and a
    /// margin.
    virtual void fitInto(const RECT& /*room*/) {}

    [[nodiscard]] forms::Control& control() const { return control_; }
    [[nodiscard]] HWND window() const { return window_; }
    /// Returns the resolution of the control's layout, in pixels per inch.
    [[nodiscard]] int dpi() const { return dpi_; }

  protected:
    /// Handles a message for the window. The peer may not exist any more when it returns.
    virtual LRESULT handle(UINT message, WPARAM first, LPARAM second) {
        return byDefault(message, first, second);
    }
    /// Has the window's own class handle a message.
    LRESULT byDefault(UINT message, WPARAM first, LPARAM second) const {
        return DefSubclassProc(window_, message, first, second);
    }
    /// Executes a message that changes what the window shows. If it comes from outside, as from
    /// assistive technology, the change counts as the user's.
    template <typename Action>
    LRESULT change(UINT message, WPARAM first, LPARAM second, const Action& action) {
        const HWND window = window_;
        const LRESULT answer = byDefault(message, first, second);
        if (of(window) == this && !drawing_) act(action);
        return answer;
    }

    /// True while the program itself changes the window.
    [[nodiscard]] bool drawing() const { return drawing_; }

    /// Moves the window to its place.
    virtual void updateGeometry();
    /// Shows what the kind of control has beyond its place, Enabled and Visible.
    virtual void draw() {}

    /// Sets the window's text, unless it is the same.
    void drawText(const std::string& text);
    /// Returns the window's text.
    [[nodiscard]] std::string text() const;
    void move(const RECT& place);
    /// Returns the window's place in its container.
    [[nodiscard]] virtual RECT place() const;

    LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(window_, message, first, second);
    }
    LRESULT send(UINT message, WPARAM first, const std::wstring& text) const {
        return send(message, first, reinterpret_cast<LPARAM>(text.c_str()));
    }

    /// Passes a user's action to the model, then shows the model's state: it may have refused.
    template <typename Action>
    void act(const Action& action) {
        const HWND window = window_;
        action();
        if (of(window) == this) update();
    }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR id, DWORD_PTR peer) noexcept;
    void takeFont(const Style& style);

    forms::Control& control_;
    int dpi_;
    // The window's current state. Windows takes its time even for a change to the same.
    RECT place_;
    bool enabled_;
    bool shown_;
    bool drawing_ = false;
    HWND window_;
    Font ownFont_;
    std::optional<AccessibleName> accessibleName_;
};

/// Returns the peer of a control, or null if it has no window or is null.
ControlPeer* peerOf(const forms::Control* control);

/// True if Tab can reach the control.
bool takesFocus(const forms::Control& control);

/// A peer with the type of its control.
template <typename Kind>
class PeerOf : public ControlPeer {
  public:
    PeerOf(Kind& control, const Site& site, const WindowKind& kind)
        : ControlPeer(control, site, kind), control_(control) {}

  protected:
    Kind& control_;
};

}  // namespace win32
