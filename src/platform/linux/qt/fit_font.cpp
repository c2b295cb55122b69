#include "platform/linux/qt/fit_font.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>
#include <limits>

#include "forms/fit.h"

namespace qt {

namespace {

// In points, for windows that are not enlarged.
constexpr double usualLargest = 10;
constexpr double usualSmallest = 7;

/// How much larger text may be in Liberation Sans than in the usual fonts of desktops.
constexpr double narrowFontGain = 1.13;

/// Measures captions and asks the style for the room that it leaves them, without any widget.
class StyleRuler : public forms::Ruler {
  public:
    StyleRuler(const QFont& font, const Scale& scale) : metrics_(font), scale_(scale) {}

    [[nodiscard]] int lineHeight() const override { return metrics_.height(); }
    [[nodiscard]] int width(const std::string& caption) const override {
        return metrics_.horizontalAdvance(QString::fromStdString(forms::withoutMnemonic(caption)));
    }
    [[nodiscard]] int wrappedHeight(const std::string& caption, int width) const override {
        return metrics_
            .boundingRect({0, 0, width, 0}, Qt::TextWordWrap, QString::fromStdString(caption))
            .height();
    }

    [[nodiscard]] forms::Size room(const forms::Label& label) const override {
        const QSize place = sizeOf(label);
        return {place.width(), place.height()};
    }
    [[nodiscard]] forms::Size room(const forms::Button& button) const override {
        const int sides = 4;  // a caption that touches the button's edge is hard to read
        return inside<QStyleOptionButton>(QStyle::SE_PushButtonContents, button, 2 * sides);
    }
    [[nodiscard]] forms::Size room(const forms::CheckBox& box) const override {
        return inside<QStyleOptionButton>(QStyle::SE_CheckBoxContents, box);
    }
    [[nodiscard]] forms::Size room(const forms::OptionButton& option) const override {
        return inside<QStyleOptionButton>(QStyle::SE_RadioButtonContents, option);
    }
    [[nodiscard]] forms::Size room(const forms::TextBox& box) const override {
        return inside<QStyleOptionFrame>(QStyle::SE_LineEditContents, box);
    }
    [[nodiscard]] forms::Size room(const forms::Frame& frame) const override {
        QStyleOptionGroupBox option;
        option.rect = {{}, sizeOf(frame)};
        option.fontMetrics = metrics_;
        option.text = QString::fromStdString(frame.Caption);
        option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        const QRect title =
            style_.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, nullptr);
        return {(title & option.rect).width(), title.height()};
    }
    [[nodiscard]] forms::Size room(const forms::TabStrip& tabs) const override {
        QStyleOptionTab option;
        const int edges = style_.pixelMetric(QStyle::PM_TabBarTabHSpace, &option) *
                          static_cast<int>(tabs.Tabs.size());
        const QSize place = sizeOf(tabs);
        return {place.width() - edges, place.height()};
    }

  private:
    template <typename Option>
    [[nodiscard]] forms::Size inside(QStyle::SubElement element, const forms::Control& control,
                                     int sides = 0) const {
        Option option;
        option.rect = {{}, sizeOf(control)};
        option.fontMetrics = metrics_;
        if constexpr (std::is_same_v<Option, QStyleOptionFrame>)
            option.lineWidth = style_.pixelMetric(QStyle::PM_DefaultFrameWidth, &option);
        const QSize room = style_.subElementRect(element, &option).size();
        return {room.width() - sides, room.height()};
    }

    [[nodiscard]] QSize sizeOf(const forms::Control& control) const {
        return scale_.placeOf(control).size();
    }

    QFontMetrics metrics_;
    const Scale& scale_;
    const QStyle& style_ = *QApplication::style();
};

/// Returns the least value that `measure` gives for a form.
template <typename Measure>
double least(const std::vector<std::unique_ptr<forms::Form>>& forms, const Measure& measure) {
    double result = std::numeric_limits<double>::max();
    for (const auto& form : forms)
        result = std::min(result, measure(*form));
    return result;
}

}  // namespace

QFont fittingFont(const std::vector<std::unique_ptr<forms::Form>>& forms, const QFont& usersFont,
                  const Scale& scale) {
    const double smallest = usualSmallest * scale.enlargement();
    const double largest =
        std::clamp(pointsOf(usersFont), smallest, usualLargest * scale.enlargement());
    QFont font = usersFont;
    font.setPointSizeF(largest);
    const double room = least(forms, [ruler = StyleRuler(font, scale)](const auto& form) {
        return forms::captionRoom(form, ruler);
    });
    if (room >= 1) return font;

    const double tried = forms::halfPoints(std::min(largest, largest * room * narrowFontGain));
    font = QFont("Liberation Sans");
    font.setPointSizeF(tried);
    const double points = least(forms, [&, ruler = StyleRuler(font, scale)](const auto& form) {
        return forms::fittingPoints(form, tried, ruler);
    });
    font.setPointSizeF(std::max(smallest, points));
    return font;
}

}  // namespace qt
