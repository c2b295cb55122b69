#include "forms/fit.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "forms/form.h"

namespace forms {

namespace {

/// Measures how many times each control that it visits has room for its caption, in height and in
/// width; 1 or more is enough.
class RoomMeter : public ControlVisitor {
  public:
    explicit RoomMeter(const Ruler& ruler) : ruler_(ruler) {}

    /// The least of all so far.
    [[nodiscard]] double least() const { return least_; }

    void visit(Label& label) override {
        if (label.font.points > 0) return;
        const Size room = ruler_.room(label);
        // In a smaller font a text wraps into no more lines.
        if (room.height < 2 * ruler_.lineHeight()) return takeLine(label, room);
        take(room.height, ruler_.wrappedHeight(label.Caption, room.width));
    }
    void visit(Button& button) override { takeLine(button, ruler_.room(button)); }
    void visit(CheckBox& box) override { takeLine(box, ruler_.room(box)); }
    void visit(OptionButton& option) override { takeLine(option, ruler_.room(option)); }
    void visit(TextBox& box) override { take(ruler_.room(box).height, ruler_.lineHeight()); }
    void visit(Frame& frame) override {
        if (!frame.Caption().empty()) take(ruler_.room(frame).width, ruler_.width(frame.Caption));
    }
    void visit(TabStrip& tabs) override {
        int width = 0;
        for (const auto& tab : tabs.Tabs)
            width += ruler_.width(tab.caption);
        take(ruler_.room(tabs).width, width);
    }
    void visit(Line& /*line*/) override {}
    void visit(Image& /*image*/) override {}
    void visit(PictureBox& /*panel*/) override {}
    void visit(ListBox& /*list*/) override {}
    void visit(DriveList& /*list*/) override {}
    void visit(FolderList& /*list*/) override {}
    void visit(StatusBar& /*bar*/) override {}
    void visit(MenuItem& /*item*/) override {}

  private:
    void takeLine(const Control& control, const Size& room) {
        take(room.height, ruler_.lineHeight());
        take(room.width, ruler_.width(control.Caption));
    }
    void take(int room, int need) {
        if (need > 0) least_ = std::min(least_, static_cast<double>(room) / need);
    }

    const Ruler& ruler_;
    double least_ = std::numeric_limits<double>::max();
};

}  // namespace

double captionRoom(const Form& form, const Ruler& ruler) {
    RoomMeter meter(ruler);
    for (Control* control : form.allControls())
        control->accept(meter);
    return meter.least();
}

double halfPoints(double points) {
    return std::floor(2 * points) / 2;
}

double fittingPoints(const Form& form, double tried, const Ruler& ruler) {
    // Texts do not shrink quite in proportion, as each letter takes whole pixels.
    constexpr double spare = 0.97;
    const double room = captionRoom(form, ruler);
    return room >= 1 ? tried : halfPoints(tried * room * spare);
}

}  // namespace forms
