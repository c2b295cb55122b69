#include "platform/linux/qt/toolkit.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "platform/linux/qt/fit_font.h"
#include "platform/linux/qt/form_window.h"
#include "platform/linux/qt/scaled_style.h"

/// The resources of a static library must be linked explicitly.
static void linkPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace qt {

namespace {

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QString(":/pictures/nwbw-%1.png").arg(size));
    return icon;
}

}  // namespace

QtToolkit::QtToolkit(ToHost toHost, ToWindows toWindows)
    : scale_(QApplication::font()),
      toWindows_(toWindows),
      files_(std::move(toHost), std::move(toWindows)) {
    QApplication::setStyle(new ScaledStyle(scale_.enlargement()));
    QApplication::setQuitOnLastWindowClosed(false);
    linkPictures();
    constexpr int afterTheFirstPaint = 100;  // ms; a window need not wait for its icon
    QTimer::singleShot(afterTheFirstPaint, qApp,
                       [] { QApplication::setWindowIcon(programIcon()); });
}

void QtToolkit::chooseFont(const std::vector<std::unique_ptr<forms::Form>>& forms) {
    QApplication::setFont(fittingFont(forms, QApplication::font(), scale_));
}

void QtToolkit::build(forms::Form& form) {
    form.attachWindow(std::make_unique<FormWindow>(form, scale_, toWindows_));
}

std::string QtToolkit::chooseFile(forms::Form& owner, const forms::FileQuestion& question) {
    return files_.choose(dynamic_cast<FormWindow&>(*owner.window()).widget(), question);
}

void QtToolkit::quit() {
    QCoreApplication::exit();
}

}  // namespace qt
