#pragma once

#include <string>

#include "forms/control.h"
#include "platform/windows/win32/gdi.h"
#include "platform/windows/windows_api.h"

/// The fonts of the forms.
namespace win32 {

/// Returns the system's message font in a resolution.
LOGFONTW messageFont(int dpi);

/// The size of a font in points, and the font in another size.
double pointsOf(const LOGFONTW& font, int dpi);
LOGFONTW withPoints(LOGFONTW font, double points, int dpi);

/// Returns a control's font, derived from its form's.
LOGFONTW wantedFont(const forms::Font& wanted, LOGFONTW formFont, int dpi);

Font makeFont(const LOGFONTW& font);

/// Measures text in a font, in pixels. A caption's "&" takes no room.
class TextMeter {
  public:
    /// The font must outlive the object.
    TextMeter(HFONT font, int dpi);
    ~TextMeter();
    TextMeter(const TextMeter&) = delete;
    TextMeter& operator=(const TextMeter&) = delete;

    [[nodiscard]] int width(const std::string& caption) const;
    /// Returns the height of the caption when it is wrapped to the width.
    [[nodiscard]] int wrappedHeight(const std::string& caption, int width) const;
    [[nodiscard]] int lineHeight() const { return lineHeight_; }
    /// Converts pixels at 96 to the inch to pixels in the resolution.
    [[nodiscard]] int scaled(int pixels) const { return MulDiv(pixels, dpi_, 96); }
    [[nodiscard]] int dpi() const { return dpi_; }

  private:
    [[nodiscard]] SIZE measured(const std::string& caption, int width, UINT flags) const;

    HDC screen_;
    HGDIOBJ before_;
    int dpi_;
    int lineHeight_;
};

}  // namespace win32
