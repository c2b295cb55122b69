#include "console/workbench.h"
#include "platform/linux/launch/search_path.h"
#include "platform/linux/linux_runtime.h"
#include "platform/linux/qt/application.h"
#include "platform/linux/qt/end_request.h"
#include "platform/linux/qt/message_box.h"
#include "platform/linux/qt/toolkit.h"

/// The program on Linux: drives emulated on the host's files, and Qt windows.
int main(int /*count*/, char** arguments) {
    platform::ignoreRelativeBaseFolders();
    const qt::QtApplication application(arguments);

    platform::LinuxRuntime runtime(qt::messageBox);
    qt::QtToolkit toolkit(
        [&](const std::string& path) { return runtime.disk().toHost(path); },
        [&](const platform::HostPath& path) { return runtime.disk().toWindows(path); });
    console::Workbench workbench(runtime, toolkit);
    toolkit.chooseFont(workbench.everyForm());
    const qt::EndRequest endRequest(workbench.application(), [&] { workbench.save(); });
    workbench.start();
    if (workbench.application().Count() == 0) return 0;  // asked to end during the start
    return QApplication::exec();
}
