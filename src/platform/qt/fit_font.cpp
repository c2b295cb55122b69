#include "platform/qt/fit_font.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "forms/fit.h"
#include "platform/qt/units.h"

namespace qt {

namespace {

// In points, where a length is as long in a window as on the screen.
constexpr double usualLargest = 10;
constexpr double usualSmallest = 7;

/// How much larger than in the usual fonts of desktops a text may be in Liberation Sans.
constexpr double gainOfNarrow = 1.13;

/// Asks the style what it leaves for a caption, without a widget.
class StyleRuler : public forms::Ruler {
  public:
    explicit StyleRuler(const QFont& font) : metrics_(font) {}

    [[nodiscard]] int lineHeight() const override { return metrics_.height(); }
    [[nodiscard]] int width(const std::string& caption) const override {
        return metrics_.horizontalAdvance(QString::fromStdString(forms::withoutMnemonic(caption)));
    }
    [[nodiscard]] int wrappedHeight(const std::string& caption, int width) const override {
        return metrics_
            .boundingRect({0, 0, width, 0}, Qt::TextWordWrap, QString::fromStdString(caption))
            .height();
    }

    [[nodiscard]] forms::Size room(const forms::Control& control) const override {
        const QSize place = placeOf(control).size();
        if (dynamic_cast<const forms::Button*>(&control)) {
            const int sides = 4;  // a caption that touches the button's edge is hard to read
            return inside<QStyleOptionButton>(QStyle::SE_PushButtonContents, place, 2 * sides);
        }
        if (dynamic_cast<const forms::CheckBox*>(&control))
            return inside<QStyleOptionButton>(QStyle::SE_CheckBoxContents, place);
        if (dynamic_cast<const forms::OptionButton*>(&control))
            return inside<QStyleOptionButton>(QStyle::SE_RadioButtonContents, place);
        if (dynamic_cast<const forms::TextBox*>(&control))
            return inside<QStyleOptionFrame>(QStyle::SE_LineEditContents, place);
        if (dynamic_cast<const forms::Frame*>(&control)) return insideFrame(control, place);
        if (const auto* tabs = dynamic_cast<const forms::TabStrip*>(&control)) {
            QStyleOptionTab option;
            const int edges = style_.pixelMetric(QStyle::PM_TabBarTabHSpace, &option) *
                              static_cast<int>(tabs->Tabs.size());
            return {place.width() - edges, place.height()};
        }
        return {place.width(), place.height()};
    }

  private:
    template <typename Option>
    [[nodiscard]] forms::Size inside(QStyle::SubElement element, const QSize& place,
                                     int sides = 0) const {
        Option option;
        option.rect = {{}, place};
        option.fontMetrics = metrics_;
        if constexpr (std::is_same_v<Option, QStyleOptionFrame>)
            option.lineWidth = style_.pixelMetric(QStyle::PM_DefaultFrameWidth, &option);
        const QSize room = style_.subElementRect(element, &option).size();
        return {room.width() - sides, room.height()};
    }

    [[nodiscard]] forms::Size insideFrame(const forms::Control& frame, const QSize& place) const {
        QStyleOptionGroupBox option;
        option.rect = {{}, place};
        option.fontMetrics = metrics_;
        option.text = QString::fromStdString(frame.Caption);
        option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        const QRect title =
            style_.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, nullptr);
        return {(title & option.rect).width(), title.height()};
    }

    QFontMetrics metrics_;
    const QStyle& style_ = *QApplication::style();
};

}  // namespace

QFont fittingFont(forms::Form& form) {
    const double largest = usualLargest * enlargement();
    const double smallest = usualSmallest * enlargement();
    QFont font = QApplication::font();
    font.setPointSizeF(largest);
    const double room = forms::captionRoom(form, StyleRuler(font));
    if (room >= 1) return font;

    const double tried = forms::halfPoints(std::min(largest, largest * room * gainOfNarrow));
    font = QFont("Liberation Sans");
    font.setPointSizeF(tried);
    font.setPointSizeF(std::max(smallest, forms::fittingPoints(form, tried, StyleRuler(font))));
    return font;
}

}  // namespace qt
