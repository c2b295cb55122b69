#include "platform/qt/qt_application.h"

#include <fontconfig/fontconfig.h>

namespace qt {

QtApplication::QtApplication(int& argc, char** argv)
    : fonts_([] { FcInit(); }), application_(argc, argv) {
    QApplication::setApplicationName("nwbw");
    // Wayland's desktops find the program's entry and icon by it.
    QApplication::setDesktopFileName("net.norvane.workbench");
    fonts_.join();
}

}  // namespace qt
