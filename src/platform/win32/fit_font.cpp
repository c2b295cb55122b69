#include "platform/win32/fit_font.h"

#include <algorithm>

#include "forms/fit.h"
#include "platform/win32/drawing.h"
#include "platform/win32/units.h"

namespace win32 {

namespace {

/// Width and height that a kind of control draws around its caption, in pixels at 96 to the inch.
forms::Size edgesOf(const forms::Control& control) {
    if (dynamic_cast<const forms::Button*>(&control)) return {16, 0};
    if (dynamic_cast<const forms::CheckBox*>(&control)) return {17, 0};
    if (dynamic_cast<const forms::OptionButton*>(&control)) return {17, 0};
    if (dynamic_cast<const forms::Frame*>(&control)) return {18, 0};
    if (dynamic_cast<const forms::TextBox*>(&control)) return {0, 6};
    if (const auto* tabs = dynamic_cast<const forms::TabStrip*>(&control))
        return {14 * static_cast<int>(tabs->Tabs.size()), 0};
    return {};
}

class FormRuler : public forms::Ruler {
  public:
    FormRuler(const LOGFONTW& font, int dpi) : font_(makeFont(font)), ruler_(font_.get(), dpi) {}

    [[nodiscard]] int lineHeight() const override { return ruler_.lineHeight(); }
    [[nodiscard]] int width(const std::string& caption) const override {
        return ruler_.width(caption);
    }
    [[nodiscard]] int wrappedHeight(const std::string& caption, int width) const override {
        return ruler_.wrappedHeight(caption, width);
    }
    [[nodiscard]] forms::Size room(const forms::Control& control) const override {
        const RECT place = placeOf(control, ruler_.dpi());
        const forms::Size edges = edgesOf(control);
        return {widthOf(place) - ruler_.scaled(edges.width),
                heightOf(place) - ruler_.scaled(edges.height)};
    }

  private:
    Font font_;
    win32::Ruler ruler_;
};

}  // namespace

LOGFONTW fittingFont(forms::Form& form, int dpi) {
    constexpr double smallest = 7;
    const LOGFONTW font = messageFont(dpi);
    const double largest = std::max(pointsOf(font, dpi), smallest);
    const auto ruler = [&](double points) { return FormRuler(withPoints(font, points, dpi), dpi); };
    const double room = forms::captionRoom(form, ruler(largest));
    if (room >= 1) return withPoints(font, largest, dpi);
    const double tried = forms::halfPoints(largest * room);
    const double points = forms::fittingPoints(form, tried, ruler(tried));
    return withPoints(font, std::max(points, smallest), dpi);
}

}  // namespace win32
