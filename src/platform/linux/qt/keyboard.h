#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "forms/focus.h"
#include "forms/form.h"

class QMainWindow;

namespace qt {

/// Handles the keyboard on a form: the form's own key events, mnemonics, the default and the cancel
/// button. Moves the focus when the panel that had it becomes unusable.
class Keyboard : public QObject {
  public:
    /// Both must outlive the keyboard.
    Keyboard(forms::Form& form, QMainWindow& window);
    /// Filters the events of all widgets inside `widget`.
    void watch(const QWidget& widget);

    /// Focuses the form's first focusable control.
    void focusFirst();
    void focus(const forms::Control* control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool keyPressed(const QKeyEvent& key);
    void openMenu(QAction& action);
    bool controlTakesEnter();
    forms::Control* mnemonicTarget(const QKeyEvent& key);
    void followPanel();
    forms::TakesFocus takesFocus();

    [[nodiscard]] QWidget* receiver() const;
    QWidget* widgetOf(const forms::Control& control);

    forms::Form& form_;
    QMainWindow& window_;
    forms::Control* left_ = nullptr;  ///< the control that lost the focus
    QTimer handlersEnded_;            ///< fires when the running handlers have returned
};

}  // namespace qt
