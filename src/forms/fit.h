#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace forms {

class Control;
class Form;

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
    /// The space that the control has for its caption, or for all captions of its tabs, inside its
    /// edges and marks.
    [[nodiscard]] virtual Size room(const Control& control) const = 0;
};

/// Returns the largest font size at which no caption of the form is clipped, from `largest` down to
/// `smallest` in steps of half a point, or nullopt. Captions with a font size of their own are
/// ignored.
std::optional<double> fittingPoints(
    Form& form, double largest, double smallest,
    const std::function<std::unique_ptr<Ruler>(double points)>& rulerOf);

}  // namespace forms
