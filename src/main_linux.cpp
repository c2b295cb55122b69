#include "console/workbench.h"
#include "platform/linux/fonts.h"
#include "platform/posix/posix_runtime.h"
#include "platform/qt/end_request.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_toolkit.h"

/// The program on Linux: drives emulated on the host's files, and Qt windows.
int main(int /*count*/, char** arguments) {
    const qt::QtApplication application(arguments, platform::lookUpFonts);

    platform::PosixRuntime runtime(qt::messageBox);
    qt::QtToolkit toolkit([&](const std::string& path) { return runtime.disk().toHost(path); },
                          [&](const std::string& path) { return runtime.disk().toWindows(path); });
    console::Workbench workbench(runtime, toolkit);
    const qt::EndRequest endRequest(workbench.application());
    workbench.start();
    if (workbench.application().Count() == 0) return 0;  // asked to end during the start
    return QApplication::exec();
}
