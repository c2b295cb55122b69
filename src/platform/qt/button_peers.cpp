#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/peers.h"
#include "platform/qt/widget_peer.h"

namespace qt {

namespace {

/// What the three kinds of button share: a caption and a click.
template <typename Kind, typename Widget>
class ClickPeer : public PeerOf<Kind, Widget> {
  public:
    ClickPeer(Kind& control, QWidget& parent) : PeerOf<Kind, Widget>(control, new Widget(&parent)) {
        QObject::connect(&this->widget_, &QAbstractButton::clicked, this,
                         [this] { this->act([this] { this->control_.click(); }); });
    }

  protected:
    void draw() override { this->widget_.setText(QString::fromStdString(this->control_.Caption)); }
};

class ButtonPeer : public ClickPeer<forms::Button, QPushButton> {
  public:
    ButtonPeer(forms::Button& button, QWidget& parent) : ClickPeer(button, parent) {
        widget_.setDefault(button.isDefault);
        widget_.setAutoDefault(true);  // Enter presses it while it has the focus
    }
};

class CheckBoxPeer : public ClickPeer<forms::CheckBox, QCheckBox> {
  public:
    using ClickPeer::ClickPeer;

  protected:
    void draw() override {
        ClickPeer::draw();
        widget_.setChecked(control_.Value != 0);
    }
};

class OptionButtonPeer : public ClickPeer<forms::OptionButton, QRadioButton> {
  public:
    using ClickPeer::ClickPeer;

  protected:
    void draw() override {
        ClickPeer::draw();
        // Qt moves the focus among options that exclude each other, and refuses to clear one.
        widget_.setAutoExclusive(control_.Value);
        widget_.setChecked(control_.Value);
        widget_.setAutoExclusive(true);
        // Qt lets Tab reach the option that was last in focus, be it disabled since.
        widget_.setFocusPolicy(control_.isTabStop() ? Qt::StrongFocus : Qt::ClickFocus);
    }
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::Button& button, QWidget& parent) {
    return std::make_unique<ButtonPeer>(button, parent);
}

std::unique_ptr<forms::Peer> makePeer(forms::CheckBox& box, QWidget& parent) {
    return std::make_unique<CheckBoxPeer>(box, parent);
}

std::unique_ptr<forms::Peer> makePeer(forms::OptionButton& option, QWidget& parent) {
    return std::make_unique<OptionButtonPeer>(option, parent);
}

}  // namespace qt
