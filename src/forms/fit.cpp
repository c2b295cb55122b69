#include "forms/fit.h"

#include <algorithm>
#include <vector>

#include "forms/form.h"

namespace forms {

static bool labelFits(const Label& label, const Ruler& ruler, const Size& room) {
    if (label.font.points > 0) return true;
    if (room.height >= 2 * ruler.lineHeight())
        return ruler.wrappedHeight(label.Caption, room.width) <= room.height;
    return ruler.lineHeight() <= room.height && ruler.width(label.Caption) <= room.width;
}

static bool fits(const Control& control, const Ruler& ruler) {
    const auto room = [&] { return ruler.room(control); };
    if (const auto* label = dynamic_cast<const Label*>(&control))
        return labelFits(*label, ruler, room());
    if (dynamic_cast<const TextBox*>(&control)) return ruler.lineHeight() <= room().height;
    if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
        int width = 0;
        for (const auto& tab : tabs->Tabs)
            width += ruler.width(tab.caption);
        return width <= room().width;
    }
    const bool framed = dynamic_cast<const Frame*>(&control) && !control.Caption().empty();
    const bool pressed = dynamic_cast<const Button*>(&control) ||
                         dynamic_cast<const CheckBox*>(&control) ||
                         dynamic_cast<const OptionButton*>(&control);
    if (!framed && !pressed) return true;
    return (framed || ruler.lineHeight() <= room().height) &&
           ruler.width(control.Caption) <= room().width;
}

std::optional<double> fittingPoints(
    Form& form, double largest, double smallest,
    const std::function<std::unique_ptr<Ruler>(double points)>& rulerOf) {
    constexpr double step = 0.5;
    std::vector<double> sizes;
    for (int steps = 0; largest - steps * step >= smallest; ++steps)
        sizes.push_back(largest - steps * step);
    const auto controls = form.allControls();
    const auto found = std::partition_point(sizes.begin(), sizes.end(), [&](double points) {
        const auto ruler = rulerOf(points);
        return !std::all_of(controls.begin(), controls.end(),
                            [&](const Control* control) { return fits(*control, *ruler); });
    });
    return found == sizes.end() ? std::nullopt : std::optional(*found);
}

}  // namespace forms
