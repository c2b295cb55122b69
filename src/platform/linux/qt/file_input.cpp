#include "platform/linux/qt/file_input.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "forms/drop.h"
#include "platform/linux/qt/peers.h"

namespace qt {

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
    forms::TextBox* box =
        urls.size() == 1 ? forms::dropTarget(control ? *control : form_) : nullptr;
    if (!box) {
        event.ignore();
        return true;
    }
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() != QEvent::Drop) return true;
    window_.activateWindow();
    box->type(toWindows_(platform::HostPath(urls.front().toLocalFile().toStdString())));
    return true;
}

bool FileInput::paste(QLineEdit& edit, QClipboard::Mode mode) {
    const auto* box = dynamic_cast<forms::TextBox*>(controlOf(form_, &edit));
    if (!box || edit.isReadOnly()) return false;
    const std::string text = box->fitting(QGuiApplication::clipboard()->text(mode).toStdString());
    edit.insert(QString::fromStdString(box->holdsPath ? windowsPath(text) : text));
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

/// Returns the text unchanged if it is not an existing host path.
std::string FileInput::windowsPath(const std::string& text) const {
    QString path = QString::fromStdString(text);
    if (path.startsWith("file:///")) path = QUrl(path).toLocalFile();
    if (!path.startsWith('/') || !QFileInfo::exists(path)) return text;
    return toWindows_(platform::HostPath(path.toStdString()));
}

}  // namespace qt
