#include "platform/linux/qt/end_request.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QSemaphore>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <utility>

#include "forms/form.h"

namespace qt {

namespace {

constexpr int endSignals[] = {SIGTERM, SIGHUP, SIGINT};

std::atomic<int> wakeUp = -1;  // the write end of the pipe
std::atomic_flag asked;
bool ending = false;
std::function<void()> saveAtExit;  // empty while there is no EndRequest

extern "C" void noteSignal(int number) {
    if (asked.test_and_set()) {
        std::signal(number, SIG_DFL);
        std::raise(number);
        return;
    }
    const int error = errno;
    [[maybe_unused]] const auto written = write(wakeUp, "", 1);
    errno = error;
}

void handleExit() {
    ending = true;
    if (const auto save = std::exchange(saveAtExit, nullptr)) save();
}

QtMessageHandler showMessage;  // Qt's own

/// Runs handleExit on the main thread, and waits for it as long as a user would.
void handleExitOnMainThread() {
    if (QThread::currentThread() == qApp->thread()) {
        handleExit();
        return;
    }
    const auto handled = std::make_shared<QSemaphore>();
    QTimer::singleShot(0, qApp, [handled] {
        handleExit();
        handled->release();
    });
    constexpr int longest = 2000;  // ms
    handled->tryAcquire(1, longest);
}

/// Under Wayland Qt prints this on any of its threads and calls _exit(), which runs no exit
/// handler.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith("The Wayland connection ")) handleExitOnMainThread();
    showMessage(type, context, text);
}

void closeBoxes() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QDialog*>(window); box && box->isVisible()) box->reject();
}

}  // namespace

bool isEnding() {
    return ending;
}

EndRequest::EndRequest(forms::Application& application, std::function<void()> save)
    : application_(application) {
    saveAtExit = std::move(save);
    [[maybe_unused]] static const int registered = std::atexit(handleExit);
    showMessage = qInstallMessageHandler(handleMessage);
    qApp->installEventFilter(this);
    if (pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0) return;
    wakeUp = pipe_[1];
    auto* notifier = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        end();
    });
    for (const int number : endSignals)
        if (std::signal(number, noteSignal) == SIG_IGN) std::signal(number, SIG_IGN);
}

EndRequest::~EndRequest() {
    for (const int number : endSignals)
        if (std::signal(number, SIG_DFL) == SIG_IGN) std::signal(number, SIG_IGN);
    asked.clear();
    ending = false;
    saveAtExit = nullptr;
    qInstallMessageHandler(showMessage);
    close(pipe_[0]);
    close(pipe_[1]);
}

bool EndRequest::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::Quit) return false;
    end();
    return true;
}

void EndRequest::end() {
    ending = true;
    if (application_.Count() > 0) application_.Forms(0).close();
    // Again and again, since a handler that waited for a box continues and may show another one.
    auto* timer = new QTimer(this);
    timer->callOnTimeout(closeBoxes);
    timer->start(0);
}

}  // namespace qt
