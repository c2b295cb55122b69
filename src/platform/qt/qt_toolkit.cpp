#include "platform/qt/qt_toolkit.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QIcon>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QTimer>
#include <QUrl>

#include "platform/common/longest_name.h"
#include "platform/qt/file_filter.h"
#include "platform/qt/form_window.h"
#include "platform/qt/units.h"

/// The resources of a static library must be linked explicitly.
static void linkPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace qt {

namespace {

/// A Windows path split after its folder.
struct OfferedName {
    QString folder;
    QString file;
};

/// Returns empty parts if the text cannot be a file name.
OfferedName offeredName(const std::string& text) {
    static const QRegularExpression path(R"re(^((?:[a-zA-Z]:)?(?:[^<>:"|?*\x01-\x1f]*[\\/])?))re"
                                         R"re(([^<>:"|?*\\/\x01-\x1f]*)$)re");
    const QString name = QString::fromStdString(text);
    if (name.size() > platform::longestName) return {};
    const auto match = path.match(name);
    return {match.captured(1), match.captured(2)};
}

/// A file dialog that knows Windows paths and drives.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget& owner, const PathMap& toHost) : QFileDialog(&owner), toHost_(toHost) {
        QList<QUrl> places = sidebarUrls();
        for (char drive = 'a'; drive <= 'z'; ++drive) {
            const std::string root = toHost(std::string(1, drive) + ":\\");
            if (!root.empty()) places << QUrl::fromLocalFile(QString::fromStdString(root));
        }
        setSidebarUrls(places);
    }

    void accept() override {
        auto* edit = findChild<QLineEdit*>("fileNameEdit");
        static const QRegularExpression drive("^[a-zA-Z]:");
        if (edit && drive.match(edit->text()).hasMatch()) {
            const std::string path = toHost_(edit->text().toStdString());
            if (path.empty()) {
                QMessageBox::warning(this, windowTitle(),
                                     "There is no drive " + edit->text().left(2));
                return;
            }
            edit->setText(QString::fromStdString(path));
        }
        QFileDialog::accept();
    }

  private:
    const PathMap& toHost_;
};

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QString(":/pictures/nwbw-%1.png").arg(size));
    return icon;
}

}  // namespace

QtToolkit::QtToolkit(PathMap toHost, PathMap toWindows)
    : toHost_(std::move(toHost)), toWindows_(std::move(toWindows)), folder_(QDir::homePath()) {
    takeScale();
    QApplication::setQuitOnLastWindowClosed(false);
    linkPictures();
    constexpr int afterTheFirstPaint = 100;  // ms; a window need not wait for its icon
    QTimer::singleShot(afterTheFirstPaint, qApp,
                       [] { QApplication::setWindowIcon(programIcon()); });
}

void QtToolkit::build(forms::Form& form) {
    form.attachWindow(std::make_unique<FormWindow>(form, toWindows_));
}

std::string QtToolkit::chooseFile(forms::Form& owner, const forms::FileQuestion& question) {
    const OfferedName offered = offeredName(question.name);
    if (!offered.folder.isEmpty()) {
        const QString folder = QString::fromStdString(toHost_(offered.folder.toStdString()));
        if (folder.isEmpty()) {
            folder_ = QDir::homePath();
        } else if (QDir(folder).exists()) {
            folder_ = folder;
        }
    }

    FileDialog dialog(dynamic_cast<FormWindow&>(*owner.window()).widget(), toHost_);
    dialog.setWindowTitle(QString::fromStdString(question.title));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(question.filter));
    dialog.setDirectory(folder_);
    if (!offered.file.isEmpty()) dialog.selectFile(offered.file);
    dialog.resize((dialog.sizeHint() * enlargement()).boundedTo(dialog.screen()->availableSize()));
    if (dialog.exec() != QDialog::Accepted) return {};

    folder_ = dialog.directory().absolutePath();
    std::string chosen = toWindows_(dialog.selectedFiles().value(0).toStdString());
    if (QString::fromStdString(chosen).size() > platform::longestName)
        throw forms::RuntimeError(platform::nameTooLong + (": " + chosen));
    return chosen;
}

void QtToolkit::quit() {
    QCoreApplication::exit();
}

}  // namespace qt
