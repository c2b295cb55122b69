#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

/// Shows a menu item as an action, which opens a menu if the item has items of its own.
class MenuPeer : public QObject, public forms::Peer {
  public:
    MenuPeer(forms::MenuItem& item, QAction& action, const QMainWindow& window)
        : item_(item), action_(action) {
        action.setObjectName(QString::fromStdString(item.fullName()));
        connect(&action, &QAction::triggered, this, [&item, &window] {
            if (!isBlockedByModal(window)) item.click();
        });
    }

    void update() override {
        const bool separator = item_.Caption() == "-";
        action_.setSeparator(separator);
        action_.setText(separator ? QString() : QString::fromStdString(item_.Caption));
        action_.setEnabled(item_.Enabled);
        action_.setVisible(item_.Visible);
    }

  private:
    forms::MenuItem& item_;
    QAction& action_;
};

QAction& makeAction(const forms::MenuItem& item, QMainWindow& window) {
    QWidget* place = window.findChild<QMenu*>(QString::fromStdString(item.parent()->fullName()));
    if (!place) place = window.menuBar();

    auto* action = new QAction(place);
    if (!item.children().empty()) {
        auto* menu = new QMenu(place);
        menu->setObjectName(QString::fromStdString(item.fullName()));
        action->setMenu(menu);
    }
    place->addAction(action);
    return *action;
}

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, QMainWindow& window) {
    return std::make_unique<MenuPeer>(item, makeAction(item, window), window);
}

}  // namespace qt
