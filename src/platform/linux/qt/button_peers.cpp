#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <utility>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

/// The common part of the three kinds of button.
template <typename Kind, typename Widget>
class CaptionPeer : public PeerOf<Kind, Widget> {
  public:
    CaptionPeer(Kind& control, QWidget& parent)
        : PeerOf<Kind, Widget>(control, new Widget(&parent)) {}

  protected:
    void draw() override { this->widget_.setText(QString::fromStdString(this->control_.Caption)); }
    void click() {
        this->act([this] { this->control_.click(); });
    }
};

class ButtonPeer : public CaptionPeer<forms::Button, QPushButton> {
  public:
    ButtonPeer(forms::Button& button, QWidget& parent) : CaptionPeer(button, parent) {
        markDefault();
        connect(qApp, &QApplication::focusChanged, this, [this] { markDefault(); });
        connect(&widget_, &QPushButton::clicked, this, [this] { click(); });
    }

  private:
    /// Marks the button that Enter presses: the one in focus, or else the form's default.
    void markDefault() {
        const auto* focused = qobject_cast<QPushButton*>(widget_.window()->focusWidget());
        widget_.setDefault(focused ? focused == &widget_ : control_.isDefault);
    }
};

// The next two handle `toggled`: assistive technology changes them without a click.
class CheckBoxPeer : public CaptionPeer<forms::CheckBox, QCheckBox> {
  public:
    CheckBoxPeer(forms::CheckBox& box, QWidget& parent) : CaptionPeer(box, parent) {
        connect(&widget_, &QCheckBox::toggled, this, [this](bool ticked) {
            if (ticked != (control_.Value != 0)) click();
        });
    }

  protected:
    void draw() override {
        CaptionPeer::draw();
        widget_.setChecked(control_.Value != 0);
    }
};

class OptionButtonPeer : public CaptionPeer<forms::OptionButton, QRadioButton> {
  public:
    OptionButtonPeer(forms::OptionButton& option, QWidget& parent) : CaptionPeer(option, parent) {
        // A click on the selected option counts too, but toggles nothing.
        connect(&widget_, &QRadioButton::pressed, this, [this] { wasSelected_ = control_.Value; });
        connect(&widget_, &QRadioButton::clicked, this, [this] {
            if (std::exchange(wasSelected_, false)) click();
        });
        connect(&widget_, &QRadioButton::toggled, this, [this](bool selected) {
            if (selected && !control_.Value) click();
            // Qt clears this option before the model knows of the other, which it may refuse.
            if (!selected && control_.Value) QTimer::singleShot(0, this, [this] { update(); });
        });
        connect(qApp, &QApplication::focusChanged, this, [this] { markTabStop(); });
    }

  protected:
    void draw() override {
        CaptionPeer::draw();
        // Only exclusive options let Qt move the focus among them, but Qt refuses to clear one.
        widget_.setAutoExclusive(control_.Value);
        widget_.setChecked(control_.Value);
        widget_.setAutoExclusive(true);
        markTabStop();
    }

  private:
    /// Qt makes each option that gets the focus the tab stop, even if it is not selected, and lets
    /// it stay so while it is disabled.
    void markTabStop() {
        widget_.setFocusPolicy(control_.isTabStop() ? Qt::StrongFocus : Qt::ClickFocus);
    }

    bool wasSelected_ = false;  ///< when the mouse button went down
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::Button& button, QWidget& parent) {
    return std::make_unique<ButtonPeer>(button, parent);
}

std::unique_ptr<ControlPeer> makePeer(forms::CheckBox& box, QWidget& parent) {
    return std::make_unique<CheckBoxPeer>(box, parent);
}

std::unique_ptr<ControlPeer> makePeer(forms::OptionButton& option, QWidget& parent) {
    return std::make_unique<OptionButtonPeer>(option, parent);
}

}  // namespace qt
