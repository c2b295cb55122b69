#include "forms/form.h"

#include <algorithm>

namespace forms {

Form::Form(Application& application, std::string name, const FormStyle& style)
    : Container(nullptr, {.name = std::move(name),
                          .caption = style.caption,
                          .accessibleName = style.accessibleName,
                          .place = style.place}),
      style(style),
      application_(application) {}

void Form::Show() {
    window_->show();
}

void Form::ShowModal(Form& owner) {
    window_->showModal(owner);
}

void Form::Refresh() {
    window_->refresh();
}

void Form::Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    application_.dispatch([this] { Form_Unload(); });
    Visible.store(false);
    window_->hide();
    application_.remove(*this);
}

void Form::activate() {
    if (application_.active_ == this) return;
    application_.active_ = this;
    act([this] { Form_Activate(); });
}

void Form::keyDown(int keyCode, int shift) {
    if (KeyPreview) act([=, this] { Form_KeyDown(keyCode, shift); });
}

void Form::keyPress(int keyAscii) {
    if (KeyPreview) act([=, this] { Form_KeyPress(keyAscii); });
}

bool Form::press(const bool Control::*which) {
    for (Control* control : allControls()) {
        if (!(control->*which) || !control->usable()) continue;
        control->click();
        return true;
    }
    return false;
}

bool Form::pressDefault() {
    return press(&Control::isDefault);
}

bool Form::pressCancel() {
    return press(&Control::isCancel);
}

Control* Form::mnemonicTarget(char letter, const Control* after) {
    const auto reached = [letter](const Control* control) {
        return control->mnemonic() == letter && control->usable();
    };
    for (Control* child : children()) {
        if (child->inMenu() && reached(child)) return child;
    }
    std::vector<Control*> controls = allControls();
    const auto from = std::ranges::find(controls, after);
    if (from != controls.end()) std::rotate(controls.begin(), from + 1, controls.end());
    const auto found = std::ranges::find_if(
        controls, [&](Control* control) { return reached(control) && !control->inMenu(); });
    return found == controls.end() ? nullptr : *found;
}

void Form::close() {
    act([this] { Unload(); });
}

void Form::moved(const Place& place, forms::WindowState state) {
    Left.store(place.left);
    Top.store(place.top);
    Width.store(place.width);
    Height.store(place.height);
    WindowState = state;
}

bool Form::hasMenu() const {
    return std::ranges::any_of(children(), &Control::inMenu);
}

Control* Form::find(const std::string& fullName) {
    for (Control* control : allControls()) {
        if (control->fullName() == fullName) return control;
    }
    return nullptr;
}

void Form::changed(Effect) {
    if (window_) window_->update();
}

}  // namespace forms
