#pragma once

#include <span>
#include <string>

#include "platform/windows/win32/control_peer.h"

namespace win32 {

/// The tooltips of the controls in a form's window.
class Tooltips {
  public:
    /// The window must outlive the object's calls. It owns the tooltips.
    explicit Tooltips(HWND form) : form_(form) {}

    /// Adds the tooltips of controls.
    void add(std::span<ControlPeer* const> peers, const Style& style);
    /// Takes the font and the resolution of the form.
    void restyle(const Style& style) const;
    /// Sets the tooltip of a control's window, and hides the one that it shows. An empty text is
    /// not shown.
    void setText(HWND control, const std::string& text) const;

  private:
    HWND form_;
    HWND tips_ = nullptr;  ///< created with the first tooltip
};

}  // namespace win32
