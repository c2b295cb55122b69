#include "forms/controls.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

static Definition lineAt(const Place& place, Definition definition, bool light) {
    definition.place = place;
    definition.light = light;
    return definition;
}

Groove::Groove(Container& parent, Definition dark, Definition light, const Span& span)
    : dark_(parent, lineAt({span.left, span.top, span.width, thickness}, std::move(dark), false)),
      light_(parent, lineAt({span.left, span.top + thickness, span.width, thickness},
                            std::move(light), true)) {}

std::vector<OptionButton*> OptionButton::group() const {
    std::vector<OptionButton*> group;
    for (Control* sibling : parent()->children()) {
        if (OptionButton* option = sibling->option()) group.push_back(option);
    }
    return group;
}

/// Draws the whole group, since its tab stop may have moved.
void OptionButton::changed(Effect effect) {
    const bool selected = effect == Effect::Raise && Value;
    const std::vector<OptionButton*> options = group();
    for (OptionButton* option : options) {
        if (selected && option != this) option->Value.store(false);
    }
    for (OptionButton* option : options)
        option->draw();
    if (selected) raise();
}

bool OptionButton::isTabStop() const {
    const auto options = group();
    const auto reached = [](const OptionButton* option) {
        return option->Enabled && option->Visible;
    };
    auto stop = std::ranges::find_if(
        options, [&](const OptionButton* option) { return option->Value && reached(option); });
    if (stop == options.end()) stop = std::ranges::find_if(options, reached);
    return stop != options.end() && *stop == this;
}

OptionButton& OptionButton::nextOption(int step) {
    auto options = group();
    if (step < 0) std::ranges::reverse(options);
    std::rotate(options.begin(), std::ranges::find(options, this) + 1, options.end());
    return **std::ranges::find_if(
        options, [this](const OptionButton* option) { return option == this || option->usable(); });
}

void TextBox::type(const std::string& text) {
    if (!readOnly) act([&] { Text = fitting(text); });
}

std::string TextBox::fitting(const std::string& text) const {
    std::string line = text.substr(0, text.find_first_of("\r\n"));
    std::erase_if(line,
                  [](unsigned char character) { return character < ' ' || character == 127; });
    return line;
}

void ListBox::Clear() {
    items_.clear();
    ListIndex.store(-1);
    draw();
}

void ListBox::AddItem(const std::string& text, std::optional<int> index) {
    const int at = index.value_or(ListCount());
    if (at < 0 || at > ListCount()) throw std::out_of_range("Invalid list index");
    items_.insert(items_.begin() + at, text);
    if (ListIndex >= at) ListIndex.store(ListIndex + 1);
    draw();
}

void ListBox::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) throw std::out_of_range("Invalid list index");
    items_.erase(items_.begin() + index);
    if (ListIndex == index) {
        ListIndex.store(-1);
    } else if (ListIndex > index) {
        ListIndex.store(ListIndex - 1);
    }
    draw();
}

void ListBox::setList(int index, const std::string& text) {
    items_.at(index) = text;
    draw();
}

std::string ListBox::Text() const {
    return ListIndex < 0 ? std::string() : items_.at(ListIndex);
}

void ListBox::pick(int index) {
    if (index < ListCount()) act([&] { ListIndex = index; });
}

void TabStrip::pick(int index) {
    act([&] { SelectedItem = index; });
}

void CommonDialog::ShowOpen() {
    const std::string chosen =
        form().application().chooseFile(form(), {DialogTitle, Filter, FileName});
    if (!chosen.empty()) FileName = chosen;
}

void CommonDialog::accept(ControlVisitor&) {}

// Each kind calls the visitor's overload for itself.
void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Line::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Image::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Button::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void CheckBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void OptionButton::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void TextBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Frame::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void PictureBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void ListBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void TabStrip::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void StatusBar::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void MenuItem::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

}  // namespace forms
