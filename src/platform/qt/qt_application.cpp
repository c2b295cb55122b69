#include "platform/qt/qt_application.h"

namespace qt {

QtApplication::QtApplication(char** arguments, void (*lookUpFonts)())
    : fonts_(lookUpFonts), application_(count_, arguments) {
    QApplication::setApplicationName("nwbw");
    // Wayland desktops find the program's menu entry and icon by this name.
    QApplication::setDesktopFileName("net.norvane.workbench");
    fonts_.join();
}

}  // namespace qt
