#pragma once

#include <QEventLoop>
#include <QPointer>
#include <memory>

#include "forms/form.h"
#include "platform/linux/qt/file_input.h"
#include "platform/linux/qt/keyboard.h"
#include "platform/linux/qt/units.h"

namespace qt {

/// The window of a form: the menu bar, the client area with the form's controls, and the status
/// bar. Left and Top are those of the window with its frame, Width and Height those of the window
/// without it.
class FormWindow final : public QObject, public forms::WindowPeer {
  public:
    /// Creates the window hidden. The form's controls get their peers when it is first shown.
    FormWindow(forms::Form& form, const Scale& scale, ToWindows toWindows);
    ~FormWindow() override;

    void show() override;
    void showModal(forms::Form& owner) override;
    void hide() override;
    void refresh() override;
    void update() override;
    void focus(const forms::Control& control) override;

    QMainWindow& widget() { return window_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void centre();
    void moveTo(const QPoint& corner);
    void report();

    forms::Form& form_;
    ToWindows toWindows_;
    ScaledWindow& window_;
    forms::Place given_;                  ///< the place that the program set last
    QPoint corner_;                       ///< where the window was put last
    std::unique_ptr<FileInput> files_;    ///< created when the window is first shown
    std::unique_ptr<Keyboard> keyboard_;  ///< created when the window is first shown
    QPointer<QWidget> owner_;
    QPointer<QEventLoop> modal_;
};

}  // namespace qt
