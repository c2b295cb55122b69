#include "platform/linux/qt/form_window.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QLayout>
#include <QMenuBar>
#include <QProxyStyle>
#include <QScreen>
#include <QWindow>
#include <cmath>

#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

constexpr int menuBarHeight = 330;  // in twips

Qt::WindowFlags windowFlags(const forms::FormStyle& style) {
    if (style.sizable) return Qt::Window;
    if (style.bare) return Qt::Tool | Qt::FramelessWindowHint;
    return Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::CustomizeWindowHint |
           Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
}

/// Makes the items of a menu bar as high as the bar.
class MenuBarStyle : public QProxyStyle {
  public:
    explicit MenuBarStyle(QMenuBar& bar) : bar_(bar) { setParent(&bar); }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type != CT_MenuBarItem) return size;
        const int edges = pixelMetric(PM_MenuBarPanelWidth, option, widget) +
                          pixelMetric(PM_MenuBarVMargin, option, widget);
        return {size.width(), bar_.height() - 2 * edges};
    }

  private:
    const QMenuBar& bar_;
};

/// Gives the bar the same height in every style, so that the positions of the controls are known.
void setUpMenuBar(QMenuBar& bar) {
    bar.setNativeMenuBar(false);
    bar.setFixedHeight(scaleOf(bar).pixels(menuBarHeight));
    bar.setStyle(new MenuBarStyle(bar));
}

}  // namespace

FormWindow::FormWindow(forms::Form& form, const Scale& scale, ToWindows toWindows)
    : form_(form),
      toWindows_(std::move(toWindows)),
      window_(*new ScaledWindow(scale, windowFlags(form.style))) {
    window_.setObjectName(QString::fromStdString(form.name));
    window_.setAccessibleName(QString::fromStdString(form.style.accessibleName));
    auto* client = new QWidget(&window_);
    window_.setCentralWidget(client);
    if (form.hasMenu()) setUpMenuBar(*window_.menuBar());
    if (form.style.background != forms::FormStyle::noColour) {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor::fromRgb(form.style.background));
        client->setPalette(palette);
        client->setAutoFillBackground(true);
    }
    window_.setFont(QApplication::font());  // keeps it if the desktop changes its own
    update();
    window_.installEventFilter(this);
}

/// The window may be delivering the event whose handler ended the form, so it is deleted later. The
/// form's controls no longer exist, so its events must not reach them.
FormWindow::~FormWindow() {
    keyboard_.reset();
    window_.removeEventFilter(this);
    window_.hide();
    window_.deleteLater();
}

void FormWindow::show() {
    if (form_.style.centred) centre();
    if (!keyboard_) {
        // The filter installed last comes first: the form sees a key before it pastes a path.
        files_ = std::make_unique<FileInput>(form_, window_, toWindows_);
        keyboard_ = std::make_unique<Keyboard>(form_, window_);
        // Not the menu bar, which has keys of its own.
        buildPeers(form_, window_, [this](const QWidget& widget) {
            files_->watch(widget);
            keyboard_->watch(widget);
        });
    }
    if (!window_.focusWidget()) keyboard_->focusFirst();
    window_.show();
    window_.raise();
    window_.activateWindow();
}

void FormWindow::showModal(forms::Form& owner) {
    const QPointer<FormWindow> alive(this);
    if (auto* window = dynamic_cast<FormWindow*>(owner.window())) owner_ = &window->window_;
    const QPointer<QWidget> ownerWidget = owner_;
    QEventLoop loop;
    modal_ = &loop;
    window_.setWindowModality(Qt::ApplicationModal);
    window_.winId();
    if (owner_) window_.windowHandle()->setTransientParent(owner_->windowHandle());
    show();
    if (alive && !form_.unloaded()) loop.exec(QEventLoop::DialogExec);
    if (ownerWidget) ownerWidget->activateWindow();
}

void FormWindow::hide() {
    window_.hide();
    if (modal_) modal_->quit();
}

/// Waits until the screen shows the window, which cannot be painted before, and in its place: the
/// window manager may put it there late, and a message box would open where it was until then.
void FormWindow::refresh() {
    const auto await = [this](int milliseconds, const auto& done) {
        const QDeadlineTimer patience(milliseconds);
        do {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        } while (window_.isVisible() && !done() && !patience.hasExpired());
    };
    await(500, [this] { return window_.windowHandle()->isExposed(); });
    await(100, [this] { return window_.pos() == corner_; });
}

void FormWindow::update() {
    window_.setWindowTitle(QString::fromStdString(form_.Caption));
    given_ = {form_.Left, form_.Top, form_.Width, form_.Height};
    const Scale& scale = window_.scale;
    const QSize size(scale.pixels(form_.Width), scale.pixels(form_.Height));
    if (!form_.style.sizable) window_.setFixedSize(size);
    if (window_.size() != size) window_.resize(size);
    moveTo({scale.screenPixels(form_.Left), scale.screenPixels(form_.Top)});
}

void FormWindow::moveTo(const QPoint& corner) {
    corner_ = corner;
    // A window that was never moved has no position yet, though it appears to be in the corner.
    if (window_.pos() != corner || !window_.testAttribute(Qt::WA_Moved)) window_.move(corner);
}

void FormWindow::focus(const forms::Control& control) {
    if (keyboard_) keyboard_->focus(&control);
}

void FormWindow::centre() {
    QRect around = QGuiApplication::primaryScreen()->availableGeometry();
    if (owner_) around = owner_->frameGeometry();
    const QRect place(QPoint(), window_.size());
    moveTo(around.center() - place.center());
}

bool FormWindow::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
        case QEvent::Close:
            event->ignore();  // unloading the form closes the window
            report();
            form_.close();
            return true;
        case QEvent::WindowActivate:
            report();
            form_.activate();
            return false;
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            report();
            return false;
        default:
            return false;
    }
}

/// Tells the form where its window is. A length that the program set is kept while it matches in
/// pixels, so that storing and restoring a window does not make it drift. With a fractional scale,
/// Qt itself may round a window's position by one pixel. Wayland does not tell a window its
/// position.
void FormWindow::report() {
    if (!window_.isVisible()) return;
    static const bool placeless = QGuiApplication::platformName().startsWith("wayland");
    const Scale& scale = window_.scale;
    const double dots = window_.devicePixelRatioF();
    const int tolerance = dots == std::floor(dots) ? 0 : 1;
    const auto near = [tolerance](int a, int b) { return std::abs(a - b) <= tolerance; };
    const auto keepPlace = [&](int given, int seen) {
        return placeless || near(scale.screenPixels(given), seen) ? given : scale.screenTwips(seen);
    };
    const auto keepSize = [&](int given, int seen) {
        return near(scale.pixels(given), seen) ? given : scale.twips(seen);
    };
    auto state = forms::WindowState::Normal;
    if (window_.isMaximized()) state = forms::WindowState::Maximised;
    if (window_.isMinimized()) state = forms::WindowState::Minimised;
    form_.moved(
        {keepPlace(given_.left, window_.x()), keepPlace(given_.top, window_.y()),
         keepSize(given_.width, window_.width()), keepSize(given_.height, window_.height())},
        state);
}

}  // namespace qt
