#include "forms/focus.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

Control* firstFocus(const Container& container, const TakesFocus& takesFocus) {
    for (Control* control : container.children()) {
        if (!control->usable()) continue;
        if (takesFocus(*control)) return control;
        const auto* inner = dynamic_cast<Container*>(control);
        Control* first = inner ? firstFocus(*inner, takesFocus) : nullptr;
        if (first) return first;
    }
    return nullptr;
}

/// Returns the first focusable control of a usable sibling of the container, or null.
static Control* focusBeside(const Container& gone, const TakesFocus& takesFocus) {
    for (Control* sibling : gone.parent()->children()) {
        const auto* other = dynamic_cast<Container*>(sibling);
        Control* first = other && other->usable() ? firstFocus(*other, takesFocus) : nullptr;
        if (first) return first;
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
    std::rotate(controls.begin(), std::find(controls.begin(), controls.end(), &gone),
                controls.end());
    const auto next = std::find_if(controls.begin(), controls.end(), [&](const Control* control) {
        return control->usable() && takesFocus(*control);
    });
    return next == controls.end() ? nullptr : *next;
}

}  // namespace forms
