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

/// Measures captions in one font, in pixels. A caption's "&" takes no room.
class Ruler {
  public:
    virtual ~Ruler() = default;
    [[nodiscard]] virtual int lineHeight() const = 0;
    [[nodiscard]] virtual int width(const std::string& caption) const = 0;
    /// Height of the caption when it is wrapped to the width.
    [[nodiscard]] virtual int wrappedHeight(const std::string& caption, int width) const = 0;
    /// What the control leaves for its caption, or for those of its tabs together, beside the
    /// edges and marks that are drawn around them.
    [[nodiscard]] virtual Size room(const Control& control) const = 0;
};

/// The largest size, from the largest down to the smallest in half points, in which every caption
/// of the form can be read whole; nothing if there is none. A caption with a size of its own does
/// not count.
std::optional<double> fittingPoints(
    Form& form, double largest, double smallest,
    const std::function<std::unique_ptr<Ruler>(double points)>& rulerOf);

}  // namespace forms
