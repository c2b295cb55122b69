#include "forms/focus.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

/// Returns the first of the controls that is usable and takes the focus, or null.
static Control* firstFocus(const std::vector<Control*>& controls, const TakesFocus& takesFocus) {
    const auto first = std::ranges::find_if(controls, [&](const Control* control) {
        return control->usable() && takesFocus(*control);
    });
    return first == controls.end() ? nullptr : *first;
}

Control* firstFocus(const Control& container, const TakesFocus& takesFocus) {
    return firstFocus(container.allControls(), takesFocus);
}

/// Returns the first focusable control of a usable sibling of the container, or null.
static Control* focusBeside(const Container& gone, const TakesFocus& takesFocus) {
    for (Control* sibling : gone.parent()->children()) {
        if (Control* first = firstFocus(*sibling, takesFocus)) return first;
    }
    return nullptr;
}

Control* focusAfter(Control& gone, const TakesFocus& takesFocus) {
    const Container* container = gone.parent();
    if (!gone.form().usable()) return nullptr;
    if (!container->usable()) {
        while (!container->parent()->usable())
            container = container->parent();
        if (Control* beside = focusBeside(*container, takesFocus)) return beside;
    }
    std::vector<Control*> controls = gone.form().allControls();
    std::rotate(controls.begin(), std::ranges::find(controls, &gone), controls.end());
    return firstFocus(controls, takesFocus);
}

}  // namespace forms
