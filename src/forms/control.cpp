#include "forms/control.h"

#include <cctype>

#include "forms/controls.h"
#include "forms/form.h"

namespace forms {

Control::Control(Container* parent, Definition definition)
    : name(std::move(definition.name)),
      index(definition.index),
      tooltip(std::move(definition.tooltip)),
      definedAccessibleName(std::move(definition.accessibleName)),
      font(std::move(definition.font)),
      Caption(*this, std::move(definition.caption)),
      Left(*this, definition.place.left),
      Top(*this, definition.place.top),
      Width(*this, definition.place.width),
      Height(*this, definition.place.height),
      Enabled(*this, definition.enabled),
      Visible(*this, definition.visible),
      parent_(parent),
      event_(std::move(definition.event)) {
    if (parent_) parent_->children_.push_back(this);
}

std::string Control::fullName() const {
    return index < 0 ? name : name + "(" + std::to_string(index) + ")";
}

std::string Control::accessibleName() const {
    if (!definedAccessibleName.empty()) return definedAccessibleName;
    if (!Caption().empty() || !parent_) return withoutMnemonic(Caption);
    const Control* before = nullptr;
    for (const Control* sibling : parent_->children()) {
        if (sibling == this) break;
        before = sibling;
    }
    if (dynamic_cast<const Label*>(before)) return withoutMnemonic(before->Caption);
    return parent_->accessibleName();
}

char Control::mnemonic() const {
    const std::string& caption = Caption;
    const auto mark = caption.find('&');
    if (mark == std::string::npos || mark + 1 == caption.size()) return 0;
    return static_cast<char>(std::toupper(static_cast<unsigned char>(caption[mark + 1])));
}

bool Control::usable() const {
    return Visible && Enabled && (!parent_ || parent_->usable());
}

Form& Control::form() {
    return parent_->form();
}

void Control::SetFocus() {
    form().window()->focus(*this);
}

void Control::click() {
    act([this] { clicked(); });
}

void Control::changed(Effect effect) {
    draw();
    if (effect != Effect::Draw) raise();
}

void Control::act(const std::function<void()>& action) {
    if (usable()) form().application().dispatch(action);
}

void Control::draw() {
    if (peer_) peer_->update();
}

void Control::raise() {
    if (event_) event_();
}

static void collect(const Container& container, std::vector<Control*>& controls) {
    for (Control* control : container.children()) {
        controls.push_back(control);
        if (const auto* inner = dynamic_cast<Container*>(control)) collect(*inner, controls);
    }
}

std::vector<Control*> Container::allControls() const {
    std::vector<Control*> controls;
    collect(*this, controls);
    return controls;
}

std::string withoutMnemonic(const std::string& caption) {
    std::string plain = caption;
    std::erase(plain, '&');
    return plain;
}

}  // namespace forms
