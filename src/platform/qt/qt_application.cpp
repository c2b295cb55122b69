#include "platform/qt/qt_application.h"

#include <fontconfig/fontconfig.h>

namespace qt {

QtApplication::QtApplication(int& argc, char** argv)
    : fonts_([] { FcInit(); }), application_(argc, argv) {
    QApplication::setApplicationName("nwbw");
    fonts_.join();
}

}  // namespace qt
