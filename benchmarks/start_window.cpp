// Shows the console ("console") or a window of the same size that shows a word. Prints when it was
// painted, in nanoseconds of the monotonic clock, and then the peak memory use in KiB.

#include <sys/resource.h>

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <cstdio>
#include <string>

#include "console/frm_console.h"
#include "console/workbench.h"
#include "platform/linux/linux_runtime.h"
#include "platform/linux/qt/application.h"
#include "platform/linux/qt/form_window.h"
#include "platform/linux/qt/message_box.h"
#include "platform/linux/qt/toolkit.h"

namespace {

void report(const QMainWindow& window) {
    // Painted by its first expose event.
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const auto painted = std::chrono::steady_clock::now().time_since_epoch();

    constexpr int untilAtRest = 300;  // ms
    QTimer::singleShot(untilAtRest, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    std::printf("%lld %ld\n", static_cast<long long>(std::chrono::nanoseconds(painted).count()),
                used.ru_maxrss);
}

void showWord(int count, char** arguments) {
    const QApplication qt(count, arguments);
    QMainWindow window;
    new QLabel("Norvane", &window);
    window.resize(433, 433);
    window.show();
    report(window);
}

void showConsole(char** arguments) {
    const qt::QtApplication application(arguments);
    platform::LinuxRuntime runtime(qt::messageBox);
    qt::QtToolkit toolkit(
        [&](const std::string& path) { return runtime.disk().toHost(path); },
        [&](const platform::HostPath& path) { return runtime.disk().toWindows(path); });
    forms::Application forms(toolkit, [](const std::string&, bool) {});
    toolkit.chooseFont(console::Workbench(runtime, toolkit).everyForm());
    core::Program program{runtime};
    auto& console = forms.load<console::frmConsole>(program);
    console.Show();
    report(dynamic_cast<qt::FormWindow&>(*console.window()).widget());
}

}  // namespace

int main(int count, char** arguments) {
    if (count > 1 && std::string(arguments[1]) == "console") {
        showConsole(arguments);
    } else {
        showWord(count, arguments);
    }
}
