/// A small text editor that stands in for the desktop's text editor and for the author's editor and
/// word processor in the demo. It records how it was called.

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMainWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QShortcut>

#include "record.h"

namespace {

class Editor : public QMainWindow {
  public:
    explicit Editor(const QString& file) : file_(file) {
        text_ = new QPlainTextEdit(this);
        text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        setCentralWidget(text_);
        setWindowTitle(QFileInfo(file).fileName() + "[*] - Practice Editor");
        resize(560, 420);

        QFile in(file);
        if (in.open(QIODevice::ReadOnly)) {
            const QString text = QString::fromUtf8(in.readAll());
            if (text.contains("\r\n")) lineEnd_ = "\r\n";
            text_->setPlainText(text);
        }
        connect(text_->document(), &QTextDocument::modificationChanged, this,
                &QMainWindow::setWindowModified);
        connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this,
                [this] { save(); });
    }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (!isWindowModified()) return;
        const auto answer =
            QMessageBox::question(this, windowTitle(), "Save the changes?",
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        const bool close =
            answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
        event->setAccepted(close);
    }

  private:
    bool save() {
        QSaveFile out(file_);
        const QByteArray text = text_->toPlainText().replace("\n", lineEnd_).toUtf8();
        if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit()) {
            QMessageBox::warning(this, windowTitle(), out.errorString());
            return false;
        }
        text_->document()->setModified(false);
        return true;
    }

    QString file_;
    QString lineEnd_ = "\n";  ///< as in the file
    QPlainTextEdit* text_;
};

}  // namespace

int main(int argumentCount, char** arguments) {
    const practice::Record record(argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    Editor editor(record.arguments().empty() ? QString()
                                             : QString::fromStdString(record.arguments().front()));
    editor.show();
    return QApplication::exec();
}
