#include "qt_windows.h"

namespace {

using namespace forms;

/// True if the widget shows its whole caption, and a mark before it is in proportion.
bool captionFits(const QWidget& widget, const std::string& caption) {
    const auto shown = widget.property(widget.inherits("QGroupBox") ? "title" : "text").toString();
    const QString text = name(withoutMnemonic(caption));
    if (name(withoutMnemonic(shown.toStdString())) != text) return false;
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->textFormat() == Qt::PlainText &&
               (label->wordWrap() ? label->heightForWidth(label->width()) <= label->height()
                                  : widget.fontMetrics().horizontalAdvance(text) <= widget.width());
    const int letters = widget.fontMetrics().height();
    const int mark = widget.style()->pixelMetric(QStyle::PM_IndicatorHeight);
    const int edges = widget.property("checkable").toBool() ? mark + 3 : 8;
    return widget.fontMetrics().horizontalAdvance(text) + edges <= widget.width() &&
           letters <= widget.height() && 4 * mark > 3 * letters;
}

/// Returns a widget's kind, place in pixels, size of its font, and settings of those that it has.
std::string lookOf(const QWidget& widget) {
    const QRect place = widget.geometry();
    QString look;
    QTextStream text(&look);
    text << widget.metaObject()->className() << ' ' << place.x() << ' ' << place.y() << ' '
         << place.width() << ' ' << place.height() << ' ' << widget.font().pointSizeF()
         << (widget.font().italic() ? " italic" : "") << " role=" << widget.backgroundRole()
         << " flags=" << widget.windowFlags();
    for (const char* name :
         {"alignment", "focusPolicy", "autoDefault", "autoFillBackground",
          "horizontalScrollBarPolicy", "indentation", "itemsExpandable", "rootIsDecorated",
          "headerHidden", "readOnly", "scaledContents", "selectionBehavior", "tabChangesFocus",
          "textElideMode", "uniformItemSizes", "wordWrap"})
        if (const QVariant value = widget.property(name); value.isValid())
            text << ' ' << name << '=' << value.toInt();
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget))
        text << " inside=" << area->viewport()->backgroundRole();
    text.flush();
    return look.toStdString();
}

TEST_F(Windows, EveryFormOfTheProgramIsReadable) {
    std::string looks;
    for (const int points : {8, 11, 18, 24}) {
        SCOPED_TRACE(points);
        Desktop desktop(runtime, points);
        const auto forms = fakes::everyForm(desktop.application, desktop.program);
        for (Form* shown : forms)
            shown->Show();
        for (int tab = 1; tab <= 4; ++tab)
            dynamic_cast<console::frmConsole&>(*forms[0]).tbsOptions.SelectedItem = tab;
        const QMenuBar& bar = *windowOf(*forms[0]).menuBar();
        EXPECT_EQ(bar.actionGeometry(bar.actions()[0]).height(), bar.height());
        const QFont font = QApplication::font();
        for (const QMenu* menu : windowOf(*forms[0]).findChildren<QMenu*>())
            EXPECT_EQ(menu->font(), font);
        QMainWindow& splash = windowOf(*forms[1]);
        const QPoint middle = splash.screen()->availableGeometry().center();
        EXPECT_LT((splash.frameGeometry().center() - middle).manhattanLength(), 4);
        const auto* logo = splash.findChild<QLabel*>("imgLogo");
        const auto* frame = splash.findChild<QWidget*>("Frame1");
        ASSERT_TRUE(frame && logo && !logo->pixmap().isNull());
        const QImage picture = splash.grab().toImage();
        EXPECT_EQ(picture.pixelColor(0, 0), QColor(0, 0, 128));
        EXPECT_EQ(picture.pixelColor(frame->pos() + QPoint(1, 1)), frame->palette().base().color());
        for (Form* shown : forms) {
            looks += lookOf(windowOf(*shown));
            for (const auto metric :
                 {QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight,
                  QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight,
                  QStyle::PM_CheckBoxLabelSpacing, QStyle::PM_RadioButtonLabelSpacing,
                  QStyle::PM_SmallIconSize, QStyle::PM_ListViewIconSize, QStyle::PM_ButtonIconSize,
                  QStyle::PM_MessageBoxIconSize, QStyle::PM_ScrollBarExtent,
                  QStyle::PM_TabBarScrollButtonWidth})
                looks += ' ' + std::to_string(splash.style()->pixelMetric(metric));
            looks += '\n';
            EXPECT_EQ(windowOf(*shown).windowTitle(), name(shown->Caption));
            for (const Control* control : shown->allControls()) {
                SCOPED_TRACE(shown->name + " " + control->fullName());
                const auto* drawn = windowOf(*shown).centralWidget()->findChild<QWidget*>(
                    name(control->fullName()));
                if (!drawn) continue;
                EXPECT_TRUE(control->Caption().empty() || captionFits(*drawn, control->Caption));
                looks += shown->name + ' ' + control->fullName() + ' ' + lookOf(*drawn) + '\n';
                QTextDocument tip;
                tip.setHtml(drawn->toolTip());
                tip.setTextWidth(150);
                EXPECT_EQ(tip.toPlainText(), name(control->tooltip));
                EXPECT_LE(tip.size().width(), 250);
            }
        }
    }
    fakes::expectAgreed("widgets.txt", looks);
}

}  // namespace
