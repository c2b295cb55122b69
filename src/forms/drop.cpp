#include "forms/drop.h"

namespace forms {

TextBox* dropTarget(Control& control) {
    if (TextBox* box = control.pathBox()) return box->usable() ? box : nullptr;
    for (const Control* place = &control; place; place = place->parent()) {
        TextBox* found = nullptr;
        for (Control* inside : place->allControls()) {
            TextBox* box = inside->pathBox();
            if (!box || !box->usable()) continue;
            if (found) return nullptr;
            found = box;
        }
        if (found) return found;
    }
    return nullptr;
}

}  // namespace forms
