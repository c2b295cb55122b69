#include <QHelpEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QToolTip>

#include "platform/linux/qt/accessibility.h"
#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class TabWidget : public QTabWidget {
  public:
    explicit TabWidget(QWidget& parent) : QTabWidget(&parent) { setTabBar(makeTabBar().release()); }
};

/// Shows the tabs and an empty page, below the form's panels. Screen readers read a tab's tooltip
/// from Qt, so it has no markup, and eventFilter shows it with wrapping.
class TabPeer : public PeerOf<forms::TabStrip, QTabWidget> {
  public:
    TabPeer(forms::TabStrip& tabs, QWidget& parent) : PeerOf(tabs, new TabWidget(parent)) {
        for (const auto& tab : tabs.Tabs) {
            const int index =
                widget_.addTab(new QWidget(&widget_), QString::fromStdString(tab.caption));
            widget_.setTabToolTip(index, QString::fromStdString(tab.tooltip));
        }
        widget_.lower();
        widget_.tabBar()->installEventFilter(this);
        widget_.tabBar()->setAccessibleName(QString::fromStdString(tabs.accessibleName()));
        parent.installEventFilter(this);

        // A click on the selected tab counts too, but does not change the current one.
        connect(&widget_, &QTabWidget::tabBarClicked, this, [this](int clicked) {
            if (clicked == widget_.currentIndex()) pick(clicked);
        });
        connect(&widget_, &QTabWidget::currentChanged, this, [this](int current) {
            if (current + 1 != control_.SelectedItem) pick(current);
        });
    }

  protected:
    void draw() override { widget_.setCurrentIndex(control_.SelectedItem - 1); }

    /// Clips the page to the window, so that its edges stay visible.
    void updateGeometry() override {
        const QRect place = scale().placeOf(control_);
        const QRect room = widget_.parentWidget()->rect().adjusted(0, 0, -place.x(), -margin);
        const QRect seen = place & room;
        widget_.setGeometry(seen.isEmpty() ? place : seen);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const QTabBar& bar = *widget_.tabBar();
        if (watched != &bar && event->type() == QEvent::Resize) updateGeometry();
        if (watched != &bar || event->type() != QEvent::ToolTip) return false;
        const auto& help = *static_cast<QHelpEvent*>(event);
        const int tab = bar.tabAt(help.pos());
        if (tab >= 0) {
            QToolTip::showText(help.globalPos(), wrappingToolTip(control_.Tabs[tab].tooltip),
                               widget_.tabBar());
        }
        return true;
    }

  private:
    static constexpr int margin = 4;

    void pick(int index) {
        act([&] { control_.pick(index + 1); });
    }
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::TabStrip& tabs, QWidget& parent) {
    return std::make_unique<TabPeer>(tabs, parent);
}

}  // namespace qt
