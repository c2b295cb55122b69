#include "platform/linux/qt/application.h"

#include <fontconfig/fontconfig.h>

namespace qt {

QtApplication::QtApplication(char** arguments)
    : fonts_([] { FcInit(); }), application_(count_, arguments) {
    // Wayland desktops find the program's menu entry and icon by this name.
    QApplication::setDesktopFileName("net.norvane.workbench");
    fonts_.join();
}

}  // namespace qt
