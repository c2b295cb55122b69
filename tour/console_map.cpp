#include "console_map.h"

#include <algorithm>
#include <stdexcept>

namespace tour {

namespace {

constexpr int menuBar = 22;      // in pixels, above the client area
constexpr int panelInUse = 210;  // left edge of the panel of the selected tab, in twips

}  // namespace

Spot ConsoleMap::find(const std::string& name, int windowWidth) {
    forms::Control* control = console_.find(name);
    if (control == nullptr) throw std::runtime_error("the console has no control " + name);
    int x = std::min(control->Width / 2, 150);
    int y = control->Height / 2;
    for (; control != &console_; control = control->parent()) {
        x += control->name == "picOptions" ? panelInUse : control->Left;
        y += control->Top;
    }
    return {x * windowWidth / console_.Width, menuBar + y * windowWidth / console_.Width};
}

}  // namespace tour
