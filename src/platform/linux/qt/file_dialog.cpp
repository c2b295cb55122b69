#include "platform/linux/qt/file_dialog.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMap>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalBlocker>
#include <QTreeView>
#include <QUrl>

#include "forms/longest_name.h"
#include "platform/linux/qt/message_box.h"
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

/// Shows each place in a list of Qt's dialog by the name that `nameOf` gives, unless that is empty.
/// Qt names the places anew whenever it looks at them.
template <typename NameOf>
void showNames(QAbstractItemModel& places, const NameOf& nameOf) {
    constexpr int urlRole = Qt::UserRole + 1;  // in Qt's models of places
    const auto rename = [&places, nameOf] {
        const QSignalBlocker quiet(places);
        for (int row = 0; row < places.rowCount(); ++row) {
            const QModelIndex place = places.index(row, 0);
            const QString name = nameOf(place.data(urlRole).toUrl());
            if (!name.isEmpty() && place.data() != name) places.setData(place, name);
        }
    };
    rename();
    QObject::connect(&places, &QAbstractItemModel::dataChanged, &places, rename);
}

/// A file dialog that knows Windows paths and drives, which the dialogs of desktops do not.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget& owner, const ToHost& toHost, const ToWindows& toWindows)
        : QFileDialog(&owner), toHost_(toHost) {
        setOption(DontUseNativeDialog);
        showDrives();
        showNames(*findChild<QComboBox*>("lookInCombo")->model(), [&toWindows](const QUrl& folder) {
            const std::string path = folder.toLocalFile().toStdString();
            return QString::fromStdString(path.empty() ? "" : toWindows(platform::HostPath(path)));
        });
        QHeaderView& columns = *findChild<QTreeView*>("treeView")->header();
        columns.setSectionResizeMode(QHeaderView::ResizeToContents);
        columns.setStretchLastSection(true);
    }

    void accept() override {
        auto* edit = findChild<QLineEdit*>("fileNameEdit");
        static const QRegularExpression drive("^[a-zA-Z]:");
        if (edit && drive.match(edit->text()).hasMatch()) {
            std::optional<platform::HostPath> path;
            const std::string name = edit->text().toStdString();
            const std::string title = windowTitle().toStdString();
            try {
                path = toHost_(name);
                if (!path) {
                    messageBox("There is no drive " + name.substr(0, 2), core::Runtime::okOnly,
                               title);
                }
            } catch (const forms::RuntimeError& error) {
                messageBox(error.what(), core::Runtime::exclamation, title);
            }
            if (!path) return;
            edit->setText(QString::fromStdString(path->text()));
        }
        QFileDialog::accept();
    }

  private:
    /// Adds the drives to the sidebar, and makes it wide enough.
    void showDrives() {
        QList<QUrl> places = sidebarUrls();
        QMap<QUrl, QString> names;
        for (char drive = 'a'; drive <= 'z'; ++drive) {
            const std::string name = {drive, ':'};
            const auto root = toHost_(name + "\\");
            if (!root) continue;
            places << QUrl::fromLocalFile(QString::fromStdString(root->text()));
            names[places.last()] = QString::fromStdString(name);
        }
        setSidebarUrls(places);
        auto& sidebar = *findChild<QListView*>("sidebar");
        showNames(*sidebar.model(), [names](const QUrl& place) { return names.value(place); });
        sidebar.setMinimumWidth(sidebar.sizeHintForColumn(0) + 2 * sidebar.frameWidth());
    }

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

    FileDialog dialog(owner, toHost_, toWindows_);
    dialog.setWindowTitle(QString::fromStdString(question.title));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(question.filter));
    dialog.setDirectory(folder_);
    if (!offered.file.isEmpty()) dialog.selectFile(offered.file);
    dialog.resize((dialog.sizeHint() * scaleOf(owner).enlargement())
                      .boundedTo(dialog.screen()->availableSize()));
    if (dialog.exec() != QDialog::Accepted) return {};

    folder_ = dialog.directory().absolutePath();
    std::string chosen =
        toWindows_(platform::HostPath(dialog.selectedFiles().value(0).toStdString()));
    if (QString::fromStdString(chosen).size() > forms::longestName)
        throw forms::Refusal(forms::nameTooLong + (": " + chosen));
    return chosen;
}

}  // namespace qt
