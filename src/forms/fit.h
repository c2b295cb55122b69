#pragma once

#include <string>

namespace forms {

class Button;
class CheckBox;
class Control;
class Form;
class Frame;
class Label;
class OptionButton;
class TabStrip;
class TextBox;

/// A width and a height in pixels.
struct Size {
    int width = 0;
    int height = 0;
};

/// Measures captions in one font, in pixels. The "&" of a mnemonic has no width.
class Ruler {
  public:
    virtual ~Ruler() = default;
    [[nodiscard]] virtual int lineHeight() const = 0;
    [[nodiscard]] virtual int width(const std::string& caption) const = 0;
    /// Height of the caption when wrapped to the width.
    [[nodiscard]] virtual int wrappedHeight(const std::string& caption, int width) const = 0;
    /// The space that the control has for its caption inside its edges and marks. A new kind of
    /// control with a caption needs an overload; RoomMeter in fit.cpp asks for it.
    [[nodiscard]] virtual Size room(const Label& label) const = 0;
    [[nodiscard]] virtual Size room(const Button& button) const = 0;
    [[nodiscard]] virtual Size room(const CheckBox& box) const = 0;
    [[nodiscard]] virtual Size room(const OptionButton& option) const = 0;
    [[nodiscard]] virtual Size room(const TextBox& box) const = 0;
    [[nodiscard]] virtual Size room(const Frame& frame) const = 0;
    /// The space for all captions of the tabs together.
    [[nodiscard]] virtual Size room(const TabStrip& tabs) const = 0;
};

/// Returns the smallest ratio of the room for a caption to the caption's size, over all captions of
/// the form. From 1 on, no caption is clipped. Captions with a font size of their own are ignored.
double captionRoom(const Form& form, const Ruler& ruler);

/// Rounds the size down to half points.
double halfPoints(double points);

/// Returns the font size that was tried, with the ruler for it, if no caption of the form is
/// clipped, otherwise the smaller size at which none will be.
double fittingPoints(const Form& form, double tried, const Ruler& ruler);

}  // namespace forms
