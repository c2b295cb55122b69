#include "forms/control.h"

#include <algorithm>
#include <cctype>

#include "forms/form.h"

namespace forms {

Control::Control(Container* parent, Definition definition)
    : name(std::move(definition.name)),
      index(definition.index),
      tooltip(std::move(definition.tooltip)),
      definedAccessibleName(std::move(definition.accessibleName)),
      font(std::move(definition.font)),
      isDefault(definition.isDefault),
      isCancel(definition.isCancel),
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

Control::~Control() {
    if (parent_) std::erase(parent_->children_, this);
    for (Control* child : children_)
        child->parent_ = nullptr;
}

std::string Control::fullName() const {
    return index < 0 ? name : name + "(" + std::to_string(index) + ")";
}

std::string Control::accessibleName() const {
    if (!definedAccessibleName.empty()) return definedAccessibleName;
    if (!Caption().empty() || !parent_) return withoutMnemonic(Caption);
    const std::vector<Control*>& siblings = parent_->children();
    const auto self = std::ranges::find(siblings, this);
    const std::string given = self == siblings.begin() ? "" : self[-1]->nameForNext();
    return given.empty() ? parent_->accessibleName() : given;
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

static void collect(const Control& container, std::vector<Control*>& controls) {
    for (Control* control : container.children()) {
        controls.push_back(control);
        collect(*control, controls);
    }
}

std::vector<Control*> Control::allControls() const {
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
