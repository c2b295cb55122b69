#include "forms/drop.h"

#include <algorithm>

namespace forms {

static TextBox* pathBox(Control& control) {
    auto* box = dynamic_cast<TextBox*>(&control);
    return box && box->holdsPath ? box : nullptr;
}

TextBox* dropTarget(Control& control) {
    if (TextBox* box = pathBox(control)) return box->usable() ? box : nullptr;
    auto* container = dynamic_cast<Container*>(&control);
    if (!container) container = control.parent();
    for (; container; container = container->parent()) {
        TextBox* found = nullptr;
        for (Control* inside : container->allControls()) {
            TextBox* box = pathBox(*inside);
            if (!box || !box->usable()) continue;
            if (found) return nullptr;
            found = box;
        }
        if (found) return found;
    }
    return nullptr;
}

}  // namespace forms
