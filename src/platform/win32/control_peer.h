#pragma once

#include <optional>
#include <string>

#include "forms/control.h"
#include "platform/win32/accessibility.h"
#include "platform/win32/common_controls.h"
#include "platform/win32/drawing.h"
#include "platform/windows/windows_api.h"

namespace win32 {

/// How the system makes the window of a kind of control.
struct WindowKind {
    const wchar_t* className;
    DWORD style = 0;
    DWORD extendedStyle = 0;
};

/// What the controls of a form take over from the system.
struct Style {
    int dpi = 0;                 ///< in which the form is laid out
    LOGFONTW font{};             ///< of the form
    HFONT sharedFont = nullptr;  ///< the same, made
    int lineHeight = 0;          ///< of that font, in pixels
    COLORREF tabPage = 0;        ///< the colour of a tab strip's page
};

/// Where the window of a control is made.
struct Site {
    HWND parent;
    const Style& style;
    int id;
    bool startsGroup;  ///< the arrow keys do not lead from the control before to this one
};

/// A peer that shows its control as one window inside that of its container. The window belongs to
/// the form's, and may outlive the peer by the rest of the message that ended the form.
class ControlPeer : public forms::Peer {
  public:
    ControlPeer(forms::Control& control, const Site& site, const WindowKind& kind);
    ~ControlPeer() override;
    ControlPeer(const ControlPeer&) = delete;
    ControlPeer& operator=(const ControlPeer&) = delete;

    /// The peer behind a window inside a form's, or null.
    static ControlPeer* of(HWND window);
    /// Returns the peer whose window is the given one or contains it, below the form's; or null.
    static ControlPeer* around(HWND window, HWND form);

    void update() final;
    /// Takes over the style, with the font that the control wants instead of the form's. An update
    /// has to follow.
    virtual void restyle(const Style& style);

    // What the container's window hands on.
    virtual void command(int /*notification*/) {}
    virtual void notify(const NMHDR& /*notification*/) {}
    virtual void drawItem(const DRAWITEMSTRUCT& /*item*/) {}
    /// True if the control lets the background of its container through.
    [[nodiscard]] virtual bool transparent() const { return false; }

    /// Has screen readers call the window by the name.
    void speak(const std::string& name) { spokenName_.emplace(window_, name); }

    /// True if Enter or Esc has a meaning for the window itself just now.
    [[nodiscard]] virtual bool wantsKey(WPARAM /*key*/) const { return false; }
    /// Enter, on a control that takes it.
    virtual void enter() {}

    /// A bar along an edge of the form takes its place away from the room.
    virtual void takeEdge(RECT& /*room*/) {}
    /// The room that the form has for pages, beside its bars and a margin, has changed.
    virtual void fitInto(const RECT& /*room*/) {}

    [[nodiscard]] forms::Control& control() const { return control_; }
    [[nodiscard]] HWND window() const { return window_; }
    /// Pixels to the inch in which the control is laid out.
    [[nodiscard]] int dpi() const { return dpi_; }

  protected:
    /// Deals with a message for the window. The peer may have ended when the answer comes.
    virtual LRESULT handle(UINT message, WPARAM first, LPARAM second) {
        return byDefault(message, first, second);
    }
    /// What the window's own kind makes of a message.
    LRESULT byDefault(UINT message, WPARAM first, LPARAM second) const {
        return DefSubclassProc(window_, message, first, second);
    }
    /// Carries out a message that changes what the window shows. Where it comes from outside, as
    /// from a tool that works the window for its user, the change counts as the user's.
    template <typename Action>
    LRESULT change(UINT message, WPARAM first, LPARAM second, const Action& action) {
        const HWND window = window_;
        const LRESULT answer = byDefault(message, first, second);
        if (of(window) == this && !drawing_) act(action);
        return answer;
    }

    /// True while the changes of the window are the program's own.
    [[nodiscard]] bool drawing() const { return drawing_; }

    /// Puts the window into its place.
    virtual void updateGeometry();
    /// Draws what the kind of control has beyond place, enabled and visible.
    virtual void draw() {}

    /// The control's caption as the window's text; unchanged text is left alone.
    void drawText(const std::string& text);
    /// The window's text.
    [[nodiscard]] std::string text() const;
    void move(const RECT& place);
    /// Where the window belongs in its container.
    [[nodiscard]] virtual RECT place() const;

    LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(window_, message, first, second);
    }
    LRESULT send(UINT message, WPARAM first, const std::wstring& text) const {
        return send(message, first, reinterpret_cast<LPARAM>(text.c_str()));
    }

    /// Hands a user's action to the model, then shows what the model holds: it may have refused.
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
    // What the window has now. The system takes its time even for a change to the same.
    RECT place_;
    bool enabled_;
    bool shown_;
    bool drawing_ = false;
    HWND window_;
    Font ownFont_;
    std::optional<SpokenName> spokenName_;
};

/// The peer of a control, if that has a window; else, and for no control, null.
ControlPeer* peerOf(const forms::Control* control);

/// True if a user reaches the control by tabbing.
bool takesFocus(const forms::Control& control);

/// A peer that knows its control by its kind.
template <typename Kind>
class PeerOf : public ControlPeer {
  public:
    PeerOf(Kind& control, const Site& site, const WindowKind& kind)
        : ControlPeer(control, site, kind), control_(control) {}

  protected:
    Kind& control_;
};

}  // namespace win32
