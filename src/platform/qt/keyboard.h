#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "forms/focus.h"
#include "forms/form.h"

class QMainWindow;

namespace qt {

/// What the keyboard does on a form: the form's own sight of each key, mnemonics, the default and
/// the cancel button; and where the focus goes when the panel that held it has gone.
class Keyboard : public QObject {
  public:
    /// Both must outlive the keyboard.
    Keyboard(forms::Form& form, QMainWindow& window);
    /// Takes effect on the widgets that the widget now holds.
    void watch(const QWidget& widget);

    /// Puts the focus on the form's first control that takes it.
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
    QTimer handlersEnded_;            ///< runs out when the running handlers have returned
};

}  // namespace qt
