#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include "forms/control.h"
#include "platform/windows/windows_api.h"

/// Objects of the system's graphics that end with their owner, and the fonts of the forms.
namespace win32 {

struct GdiCloser {
    void operator()(void* object) const { DeleteObject(object); }
};
template <typename Handle>
using Gdi = std::unique_ptr<std::remove_pointer_t<Handle>, GdiCloser>;
using Font = Gdi<HFONT>;
using Bitmap = Gdi<HBITMAP>;

struct IconCloser {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconCloser>;

/// The system's font for messages, at the resolution.
LOGFONTW messageFont(int dpi);

/// Pixels to the inch in which the form of the window is laid out: as many as its screen has, or
/// more where the user has the system write larger than it does by itself, as far as the screen
/// has room.
int layoutDpi(HWND window);

/// Points of the font, and the font in another size.
double pointsOf(const LOGFONTW& font, int dpi);
LOGFONTW withPoints(LOGFONTW font, double points, int dpi);

/// What a control asks for, on the ground of its form's font.
LOGFONTW wantedFont(const forms::Font& wanted, LOGFONTW formFont, int dpi);

Font makeFont(const LOGFONTW& font);

/// Measures captions in a font, in pixels. A caption's "&" takes no room.
class Ruler {
  public:
    /// The font must outlive the ruler.
    Ruler(HFONT font, int dpi);
    ~Ruler();
    Ruler(const Ruler&) = delete;
    Ruler& operator=(const Ruler&) = delete;

    [[nodiscard]] int width(const std::string& caption) const;
    /// Height of the caption when it is wrapped to the width.
    [[nodiscard]] int wrappedHeight(const std::string& caption, int width) const;
    [[nodiscard]] int lineHeight() const { return lineHeight_; }
    /// As many pixels as the number is at 96 to the inch.
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
