#include "platform/windows/win32/fonts.h"

#include <cmath>
#include <cwchar>

#include "platform/windows/wide.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

constexpr double pointsPerInch = 72;

}  // namespace

LOGFONTW messageFont(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
    return metrics.lfMessageFont;
}

double pointsOf(const LOGFONTW& font, int dpi) {
    return std::abs(font.lfHeight) * pointsPerInch / dpi;
}

LOGFONTW withPoints(LOGFONTW font, double points, int dpi) {
    font.lfHeight = -std::lround(points * dpi / pointsPerInch);
    return font;
}

LOGFONTW wantedFont(const forms::Font& wanted, LOGFONTW formFont, int dpi) {
    if (!wanted.family.empty()) {
        const std::wstring family = platform::wide(wanted.family);
        formFont.lfFaceName[family.copy(formFont.lfFaceName, LF_FACESIZE - 1)] = L'\0';
        formFont.lfPitchAndFamily = DEFAULT_PITCH;
    }
    if (wanted.italic) formFont.lfItalic = TRUE;
    return wanted.points > 0 ? withPoints(formFont, wanted.points, dpi) : formFont;
}

Font makeFont(const LOGFONTW& font) {
    return Font(CreateFontIndirectW(&font));
}

TextMeter::TextMeter(HFONT font, int dpi)
    : screen_(GetDC(nullptr)), before_(SelectObject(screen_, font)), dpi_(dpi) {
    TEXTMETRICW metrics;
    GetTextMetricsW(screen_, &metrics);
    lineHeight_ = metrics.tmHeight;
}

TextMeter::~TextMeter() {
    SelectObject(screen_, before_);
    ReleaseDC(nullptr, screen_);
}

int TextMeter::width(const std::string& caption) const {
    return measured(caption, 0, DT_SINGLELINE).cx;
}

int TextMeter::wrappedHeight(const std::string& caption, int width) const {
    return measured(caption, width, DT_WORDBREAK).cy;
}

SIZE TextMeter::measured(const std::string& caption, int width, UINT flags) const {
    const std::wstring text = platform::wide(caption);
    RECT room{0, 0, width, 0};
    DrawTextW(screen_, text.c_str(), static_cast<int>(text.size()), &room, flags | DT_CALCRECT);
    return {room.right, room.bottom};
}

}  // namespace win32
