#include "platform/linux/qt/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QUrl>

#include "forms/longest_name.h"
#include "platform/linux/qt/units.h"

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
    if (name.size() > forms::longestName) return {};
    const auto match = path.match(name);
    return {match.captured(1), match.captured(2)};
}

/// A file dialog that knows Windows paths and drives.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget& owner, const ToHost& toHost) : QFileDialog(&owner), toHost_(toHost) {
        QList<QUrl> places = sidebarUrls();
        for (char drive = 'a'; drive <= 'z'; ++drive) {
            if (const auto root = toHost(std::string(1, drive) + ":\\"))
                places << QUrl::fromLocalFile(QString::fromStdString(root->text()));
        }
        setSidebarUrls(places);
    }

    void accept() override {
        auto* edit = findChild<QLineEdit*>("fileNameEdit");
        static const QRegularExpression drive("^[a-zA-Z]:");
        if (edit && drive.match(edit->text()).hasMatch()) {
            QString problem = "There is no drive " + edit->text().left(2);
            std::optional<platform::HostPath> path;
            try {
                path = toHost_(edit->text().toStdString());
            } catch (const forms::RuntimeError& error) {
                problem = QString::fromUtf8(error.what());
            }
            if (!path) {
                QMessageBox::warning(this, windowTitle(), problem);
                return;
            }
            edit->setText(QString::fromStdString(path->text()));
        }
        QFileDialog::accept();
    }

  private:
    const ToHost& toHost_;
};

QString withoutCase(const QString& pattern) {
    if (pattern == "*.*") return "*";
    QString result;
    for (const QChar character : pattern) {
        if (character.isLetter()) {
            result += '[';
            result += character.toLower();
            result += character.toUpper();
            result += ']';
        } else {
            result += character;
        }
    }
    return result;
}

/// Returns the filters in Qt's form. The patterns ignore case, and "*.*" matches every name.
QStringList nameFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2)
        filters += parts[i] + " (" + withoutCase(parts[i + 1]) + ")";
    return filters;
}

}  // namespace

FileChooser::FileChooser(ToHost toHost, ToWindows toWindows)
    : toHost_(std::move(toHost)), toWindows_(std::move(toWindows)), folder_(QDir::homePath()) {}

std::string FileChooser::choose(QWidget& owner, const forms::FileQuestion& question) {
    const OfferedName offered = offeredName(question.name);
    if (offered.folder.isEmpty() && !offered.file.isEmpty()) {
        folder_ = QDir::currentPath();
    } else if (!offered.folder.isEmpty()) {
        const auto place = toHost_(offered.folder.toStdString());
        const QString folder = place ? QString::fromStdString(place->text()) : QDir::homePath();
        if (QDir(folder).exists()) folder_ = folder;
    }

    FileDialog dialog(owner, toHost_);
    dialog.setWindowTitle(QString::fromStdString(question.title));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(question.filter));
    dialog.setDirectory(folder_);
    if (!offered.file.isEmpty()) dialog.selectFile(offered.file);
    dialog.resize((dialog.sizeHint() * enlargement()).boundedTo(dialog.screen()->availableSize()));
    if (dialog.exec() != QDialog::Accepted) return {};

    folder_ = dialog.directory().absolutePath();
    std::string chosen =
        toWindows_(platform::HostPath(dialog.selectedFiles().value(0).toStdString()));
    if (QString::fromStdString(chosen).size() > forms::longestName)
        throw forms::RuntimeError(forms::nameTooLong + (": " + chosen));
    return chosen;
}

}  // namespace qt
