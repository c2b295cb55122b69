#include "platform/linux/qt/message_box.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>
#include <iostream>

#include "platform/linux/qt/end_request.h"

namespace qt {

namespace {

/// Returns the window that the user works in: the active one or, while another program is active,
/// the one shown last.
QWidget* windowInUse() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    QWidget* last = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible()) last = window;
    return last;
}

/// Inserts zero-width spaces, so that a path can be wrapped after its backslashes, and a long name
/// anywhere.
QString breakable(const QString& text) {
    static const QRegularExpression longName(R"([^\s\\]{50,})");
    static const QRegularExpression character(R"((\X))");
    const QString space(QChar(0x200b));
    QString result;
    qsizetype done = 0;
    for (auto names = longName.globalMatch(text); names.hasNext();) {
        const auto name = names.next();
        result += text.mid(done, name.capturedStart() - done);
        result += name.captured().replace(character, "\\1" + space);
        done = name.capturedEnd();
    }
    result += text.mid(done);
    return result.replace("\\", "\\" + space);
}

/// Makes the box so wide that the window manager has room for its title between the buttons.
void fitTitle(QMessageBox& box) {
    constexpr int buttons = 8;  // with their margins, in heights of a line
    QFont bold = box.font();
    bold.setBold(true);
    const QFontMetrics letters(bold);
    const int width = letters.horizontalAdvance(box.windowTitle()) + buttons * letters.height();
    auto& grid = dynamic_cast<QGridLayout&>(*box.layout());
    grid.addItem(new QSpacerItem(width, 0), grid.rowCount(), 0, 1, grid.columnCount());
}

}  // namespace

core::Runtime::Answer messageBox(const std::string& text, int flags, const std::string& title) {
    using core::Runtime;
    if (isEnding()) {
        std::cerr << title << ": " << text << std::endl;
        return Runtime::Answer::No;
    }
    QMessageBox box(windowInUse());
    box.setTextFormat(Qt::PlainText);
    box.setText(breakable(QString::fromStdString(text)));
    box.setWindowTitle(QString::fromStdString(title));
    // Screen readers read it without the spaces.
    box.findChild<QLabel*>("qt_msgbox_label")->setAccessibleName(QString::fromStdString(text));
    const bool question = (flags & Runtime::yesNo) != 0;
    box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (flags & Runtime::exclamation) box.setIcon(QMessageBox::Warning);
    fitTitle(box);
    const int pressed = box.exec();
    if (!question) return Runtime::Answer::Ok;
    return pressed == QMessageBox::Yes ? Runtime::Answer::Yes : Runtime::Answer::No;
}

}  // namespace qt
