#include "platform/linux/qt/file_input.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>
#include <filesystem>

#include "forms/drop.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

/// Returns nullopt if the URL is none of a file on this computer.
std::optional<platform::HostPath> localFile(const QUrl& url) {
    const bool isHere = url.host().isEmpty() || url.host() == "localhost" ||
                        url.host() == QSysInfo::machineHostName().toLower();
    if (!url.isLocalFile() || !isHere) return {};
    // Keeps the bytes of a name that is not UTF-8.
    const QByteArray path = url.path(QUrl::FullyEncoded).toLatin1();
    return platform::HostPath(QByteArray::fromPercentEncoding(path).toStdString());
}

/// Returns nullopt if the text is neither an absolute path nor the URL of a local file.
std::optional<platform::HostPath> hostPath(const QString& text) {
    if (text.startsWith("file://")) return localFile(QUrl(text));
    if (text.startsWith('/')) return platform::HostPath(text.toStdString());
    return {};
}

}  // namespace

FileInput::FileInput(forms::Form& form, QMainWindow& window, ToWindows toWindows)
    : form_(form), window_(window), toWindows_(std::move(toWindows)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

void FileInput::watch(const QWidget& widget) {
    for (QWidget* inner : widget.findChildren<QWidget*>())
        inner->installEventFilter(this);
}

bool FileInput::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return drop(*qobject_cast<QWidget*>(watched), *static_cast<QDropEvent*>(event));
        case QEvent::KeyPress: {
            const auto& key = *static_cast<QKeyEvent*>(event);
            const bool selection = key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
            return edit && key.matches(QKeySequence::Paste) &&
                   paste(*edit, selection ? QClipboard::Selection : QClipboard::Clipboard);
        }
        case QEvent::MouseButtonRelease: {
            const bool middle = static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton;
            if (!edit || !middle || !QGuiApplication::clipboard()->supportsSelection())
                return false;
            edit->deselect();
            return paste(*edit, QClipboard::Selection);
        }
        case QEvent::ContextMenu:
            return edit && openMenu(*edit, static_cast<QContextMenuEvent*>(event)->globalPos());
        default:
            return false;
    }
}

/// Accepts one file, as a copy: a file manager deletes a file that was moved.
bool FileInput::drop(QWidget& on, QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    if (std::ranges::none_of(urls, [](const QUrl& url) { return url.isLocalFile(); })) return false;
    const QWidget* at = on.childAt(event.position().toPoint());
    forms::Control* control = controlOf(form_, at ? at : &on);
    const auto file = urls.size() == 1 ? localFile(urls.front()) : std::nullopt;
    forms::TextBox* box = file ? forms::dropTarget(control ? *control : form_) : nullptr;
    if (!box) {
        event.ignore();
        return true;
    }
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() != QEvent::Drop) return true;
    window_.activateWindow();
    box->type(toWindows_(*file));
    return true;
}

bool FileInput::paste(QLineEdit& edit, QClipboard::Mode mode) {
    const auto* box = dynamic_cast<forms::TextBox*>(controlOf(form_, &edit));
    if (!box || edit.isReadOnly()) return false;
    const QString text = QGuiApplication::clipboard()->text(mode);
    // Control characters may be part of a file's name, so they are removed from other texts only.
    const auto path = box->holdsPath ? windowsPath(text) : std::nullopt;
    edit.insert(QString::fromStdString(path ? *path : box->fitting(text.toStdString())));
    return true;
}

/// Opens Qt's own menu, but pastes through this class, which converts host paths.
bool FileInput::openMenu(QLineEdit& edit, const QPoint& place) {
    QMenu* menu = edit.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
        disconnect(action, nullptr, &edit, nullptr);
        connect(action, &QAction::triggered, &edit,
                [this, &edit] { paste(edit, QClipboard::Clipboard); });
    }
    menu->popup(place);
    return true;
}

/// Returns nullopt if neither the text nor its first line is an existing host path.
std::optional<std::string> FileInput::windowsPath(const QString& text) const {
    static const QRegularExpression lineBreak("[\r\n]");
    for (const QString& path : {text, text.section(lineBreak, 0, 0)}) {
        const auto file = hostPath(path);
        std::error_code failed;
        if (file && std::filesystem::exists(file->text(), failed)) return toWindows_(*file);
    }
    return {};
}

}  // namespace qt
