#include "platform/linux/qt/keyboard.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

int shiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? forms::shiftMask : 0) |
           (modifiers & Qt::ControlModifier ? forms::ctrlMask : 0) |
           (modifiers & Qt::AltModifier ? forms::altMask : 0);
}

bool isTab(const QKeyEvent& key) {
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
}

/// Returns the Windows key code for Form_KeyDown, or 0 for a key that no form asks for.
int windowsKeyCode(const QKeyEvent& key) {
    constexpr int tab = 9;
    return isTab(key) ? tab : 0;
}

/// Returns the character that the key produces, or 0.
int characterOf(const QKeyEvent& key) {
    const bool none = isTab(key) || key.key() == Qt::Key_Delete || key.text().isEmpty() ||
                      key.modifiers() & Qt::AltModifier;
    return none ? 0 : key.text().at(0).unicode();
}

QString nameOf(const forms::Control& control) {
    return QString::fromStdString(control.fullName());
}

/// True for Alt with a letter that is no mnemonic, which a text field would insert.
bool isUnusedMnemonic(const QKeyEvent& key) {
    return key.modifiers() & Qt::AltModifier && !key.text().isEmpty() && key.text().at(0).isPrint();
}

}  // namespace

Keyboard::Keyboard(forms::Form& form, QMainWindow& window) : form_(form), window_(window) {
    handlersEnded_.setSingleShot(true);
    handlersEnded_.callOnTimeout(this, [this] { followPanel(); });
    window.installEventFilter(this);
}

void Keyboard::watch(const QWidget& widget) {
    for (QWidget* inner : widget.findChildren<QWidget*>())
        inner->installEventFilter(this);
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        auto* control = controlOf(form_, qobject_cast<QWidget*>(watched));
        if (control && !handlersEnded_.isActive()) {
            left_ = control;
            handlersEnded_.start(0);
        }
        return false;
    }
    // Ignore an unhandled key, which Qt offers to the containers in turn.
    if (watched != receiver()) return false;
    if (event->type() == QEvent::KeyPress) return keyPressed(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::ShortcutOverride) {
        // Qt makes a shortcut of a caption's mnemonic too, but the model decides.
        const bool ours = mnemonicTarget(*static_cast<QKeyEvent*>(event)) != nullptr;
        if (ours) event->accept();
        return ours;
    }
    return false;
}

bool Keyboard::keyPressed(const QKeyEvent& key) {
    const QPointer<Keyboard> alive(this);
    form_.keyDown(windowsKeyCode(key), shiftOf(key.modifiers()));
    if (!alive || form_.unloaded()) return true;
    if (const int character = characterOf(key)) form_.keyPress(character);
    if (!alive || form_.unloaded()) return true;

    if (forms::Control* target = mnemonicTarget(key)) {
        if (auto* menu = window_.findChild<QAction*>(nameOf(*target))) {
            openMenu(*menu);
            return true;
        }
        if (QWidget* widget = widgetOf(*target); widget && widget->focusPolicy() != Qt::NoFocus)
            widget->setFocus(Qt::ShortcutFocusReason);
        target->click();
        return true;
    }
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return !controlTakesEnter() && (key.isAutoRepeat() || form_.pressDefault());
        case Qt::Key_Escape:
            return key.isAutoRepeat() || form_.pressCancel();
        case Qt::Key_F10:
            if (key.modifiers() != Qt::NoModifier || !form_.hasMenu()) return false;
            openMenu(*window_.menuBar()->actions().first());  // Qt leaves that to the program
            return true;
        default:
            return (isTab(key) && key.modifiers() & Qt::ControlModifier) || isUnusedMnemonic(key);
    }
}

/// Opens the menu and selects its first item, which a screen reader then reads.
void Keyboard::openMenu(QAction& action) {
    window_.menuBar()->setActiveAction(&action);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(action.menu(), &down);
}

bool Keyboard::controlTakesEnter() {
    const forms::Control* focused = controlOf(form_, window_.focusWidget());
    return focused && focused->takesEnter();
}

forms::Control* Keyboard::mnemonicTarget(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers != Qt::AltModifier || key.key() <= Qt::Key_Space || key.key() > Qt::Key_Z)
        return nullptr;
    return form_.mnemonicTarget(static_cast<char>(key.key()),
                                controlOf(form_, window_.focusWidget()));
}

void Keyboard::focusFirst() {
    focus(forms::firstFocus(form_, takesFocus()));
}

/// Qt moves the focus on from a single control that becomes unusable. It does not know panels, and
/// may choose a control outside all of them.
void Keyboard::followPanel() {
    if (left_->parent()->usable()) return;
    // Qt selects a text that it focuses as after Tab, and the next letter would replace it.
    if (auto* line = qobject_cast<QLineEdit*>(window_.focusWidget())) line->deselect();
    const forms::Control* focused = controlOf(form_, window_.focusWidget());
    if (focused && focused->usable() && focused->parent() != &form_) return;
    focus(forms::focusAfter(*left_, takesFocus()));
}

void Keyboard::focus(const forms::Control* control) {
    QWidget* widget = control ? widgetOf(*control) : nullptr;
    if (widget)
        widget->setFocus(Qt::OtherFocusReason);  // a panel gets its widgets when it is shown
}

forms::TakesFocus Keyboard::takesFocus() {
    return [this](const forms::Control& control) {
        const QWidget* widget = widgetOf(control);
        return widget && widget->focusPolicy() & Qt::TabFocus;
    };
}

QWidget* Keyboard::receiver() const {
    QWidget* focused = window_.focusWidget();
    return focused ? focused : &window_;
}

QWidget* Keyboard::widgetOf(const forms::Control& control) {
    return window_.centralWidget()->findChild<QWidget*>(nameOf(control));
}

}  // namespace qt
