#include "platform/linux/qt/message_box.h"

#include <QApplication>
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

/// Inserts zero-width spaces after the backslashes of a long path, so that it can be wrapped.
QString breakable(const QString& text) {
    static const QRegularExpression longWord(R"(\S{50,})");
    QString result = text;
    if (longWord.match(text).hasMatch()) result.replace("\\", QString("\\") + QChar(0x200b));
    return result;
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
    const bool question = (flags & Runtime::yesNo) != 0;
    box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (flags & Runtime::exclamation) box.setIcon(QMessageBox::Warning);
    const int pressed = box.exec();
    if (!question) return Runtime::Answer::Ok;
    return pressed == QMessageBox::Yes ? Runtime::Answer::Yes : Runtime::Answer::No;
}

}  // namespace qt
