#include "platform/qt/qt_application.h"

#include "platform/qt/scaled_style.h"

namespace qt {

QtApplication::QtApplication(char** arguments, void (*lookUpFonts)())
    : fonts_(lookUpFonts), application_(count_, arguments) {
    // Wayland desktops find the program's menu entry and icon by this name.
    QApplication::setDesktopFileName("net.norvane.workbench");
    QApplication::setStyle(new ScaledStyle(QApplication::style()->objectName()));
    fonts_.join();
}

}  // namespace qt
