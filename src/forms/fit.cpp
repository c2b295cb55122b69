#include "forms/fit.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "forms/form.h"

namespace forms {

namespace {

/// The times that the need goes into the room.
double share(int room, int need) {
    return need > 0 ? static_cast<double>(room) / need : 1;
}

double labelShare(const Label& label, const Ruler& ruler, const Size& room) {
    if (label.font.points > 0) return 1;
    // In a smaller font a text wraps into no more lines.
    if (room.height >= 2 * ruler.lineHeight())
        return share(room.height, ruler.wrappedHeight(label.Caption, room.width));
    return std::min(share(room.height, ruler.lineHeight()),
                    share(room.width, ruler.width(label.Caption)));
}

/// How many times the control has room for its caption, in height and in width; 1 or more is
/// enough.
double share(const Control& control, const Ruler& ruler) {
    const auto room = [&] { return ruler.room(control); };
    if (const auto* label = dynamic_cast<const Label*>(&control))
        return labelShare(*label, ruler, room());
    if (dynamic_cast<const TextBox*>(&control)) return share(room().height, ruler.lineHeight());
    if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
        int width = 0;
        for (const auto& tab : tabs->Tabs)
            width += ruler.width(tab.caption);
        return share(room().width, width);
    }
    const bool framed = dynamic_cast<const Frame*>(&control) && !control.Caption().empty();
    const bool pressed = dynamic_cast<const Button*>(&control) ||
                         dynamic_cast<const CheckBox*>(&control) ||
                         dynamic_cast<const OptionButton*>(&control);
    if (!framed && !pressed) return 1;
    const double wide = share(room().width, ruler.width(control.Caption));
    return framed ? wide : std::min(wide, share(room().height, ruler.lineHeight()));
}

}  // namespace

double captionRoom(const Form& form, const Ruler& ruler) {
    double least = std::numeric_limits<double>::max();
    for (const Control* control : form.allControls())
        least = std::min(least, share(*control, ruler));
    return least;
}

double halfPoints(double points) {
    return std::floor(2 * points) / 2;
}

double fittingPoints(const Form& form, double tried, const Ruler& ruler) {
    // Texts do not shrink quite in proportion, as each letter takes whole pixels.
    constexpr double spare = 0.97;
    const double room = captionRoom(form, ruler);
    return room >= 1 ? tried : halfPoints(tried * room * spare);
}

}  // namespace forms
