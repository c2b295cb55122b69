#include "platform/linux/qt/application.h"

#include <fontconfig/fontconfig.h>

namespace qt {

QtApplication::QtApplication(char** arguments)
    : fonts_(std::async([] { FcInit(); })), application_(count_, arguments) {
    // Wayland desktops find the program's menu entry and icon by this name.
    QApplication::setDesktopFileName("net.norvane.workbench");
    fonts_.wait();  // looks them up here if there was no thread to be had
}

}  // namespace qt
