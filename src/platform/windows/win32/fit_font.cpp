#include "platform/windows/win32/fit_font.h"

#include <algorithm>
#include <cmath>

#include "forms/fit.h"
#include "platform/windows/win32/fonts.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

class FormRuler : public forms::Ruler {
  public:
    FormRuler(const LOGFONTW& font, int dpi) : font_(makeFont(font)), meter_(font_.get(), dpi) {}

    [[nodiscard]] int lineHeight() const override { return meter_.lineHeight(); }
    [[nodiscard]] int width(const std::string& caption) const override {
        return meter_.width(caption);
    }
    [[nodiscard]] int wrappedHeight(const std::string& caption, int width) const override {
        return meter_.wrappedHeight(caption, width);
    }
    [[nodiscard]] forms::Size room(const forms::Label& label) const override {
        return inside(label, 0, 0);
    }
    [[nodiscard]] forms::Size room(const forms::Button& button) const override {
        return inside(button, 8, 0);
    }
    [[nodiscard]] forms::Size room(const forms::CheckBox& box) const override {
        return inside(box, 17, 0);
    }
    [[nodiscard]] forms::Size room(const forms::OptionButton& option) const override {
        return inside(option, 17, 0);
    }
    [[nodiscard]] forms::Size room(const forms::TextBox& box) const override {
        return inside(box, 0, 6);
    }
    [[nodiscard]] forms::Size room(const forms::Frame& frame) const override {
        return inside(frame, 18, 0);
    }
    [[nodiscard]] forms::Size room(const forms::TabStrip& tabs) const override {
        return inside(tabs, 14 * static_cast<int>(tabs.Tabs.size()), 0);
    }

  private:
    /// The control's size without its edges, which are given in pixels at 96 dpi.
    [[nodiscard]] forms::Size inside(const forms::Control& control, int width, int height) const {
        const RECT place = placeOf(control, meter_.dpi());
        return {widthOf(place) - meter_.scaled(width), heightOf(place) - meter_.scaled(height)};
    }

    Font font_;
    TextMeter meter_;
};

}  // namespace

int layoutDpi(forms::Form& form, HWND window) {
    constexpr double usualPoints = 9;
    constexpr int tallestForm = 7600;  // in twips, with menu bar and title bar
    const int dpi = dpiOf(window);
    const LOGFONTW font = messageFont(dpi);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
    const int most = std::max(dpi, MulDiv(heightOf(screen.rcWork), twipsPerInch, tallestForm));
    int layout = std::max<int>(dpi, std::lround(dpi * pointsOf(font, dpi) / usualPoints));
    while (layout < most && forms::captionRoom(form, FormRuler(font, layout)) < 1)
        layout += dpi / 48;
    return std::min(layout, most);
}

LOGFONTW fittingFont(forms::Form& form, const LOGFONTW& font, int dpi) {
    constexpr double smallest = 7;
    const double largest = std::max(pointsOf(font, dpi), smallest);
    const auto ruler = [&](double points) { return FormRuler(withPoints(font, points, dpi), dpi); };
    const double room = forms::captionRoom(form, ruler(largest));
    if (room >= 1) return withPoints(font, largest, dpi);
    const double tried = forms::halfPoints(largest * room);
    const double points = forms::fittingPoints(form, tried, ruler(tried));
    return withPoints(font, std::max(points, smallest), dpi);
}

}  // namespace win32
