#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>
#include <vector>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class StatusBarPeer : public PeerOf<forms::StatusBar, QStatusBar> {
  public:
    StatusBarPeer(forms::StatusBar& bar, QMainWindow& window)
        : PeerOf(bar, new QStatusBar(&window)) {
        window.setStatusBar(&widget_);
        widget_.setMinimumHeight(scale().pixels(bar.Height));
        for (const auto panel : bar.Panels) {
            panels_.push_back(new QLabel(&widget_));
            widget_.addPermanentWidget(panels_.back(), panel == forms::StatusBar::Panel::Text);
        }
        timer_.callOnTimeout(this, [this] { draw(); });
        timer_.start(1000);
    }

  protected:
    /// The window itself keeps its status bar at the bottom.
    void updateGeometry() override {}

    void draw() override {
        const QLocale locale = QLocale::system();
        const QDateTime now = QDateTime::currentDateTime();
        for (std::size_t i = 0; i < panels_.size(); ++i) {
            const auto panel = control_.Panels[i];
            if (panel == forms::StatusBar::Panel::Date)
                panels_[i]->setText(locale.toString(now.date(), QLocale::ShortFormat));
            if (panel == forms::StatusBar::Panel::Time)
                panels_[i]->setText(locale.toString(now.time(), QLocale::ShortFormat));
        }
    }

  private:
    std::vector<QLabel*> panels_;
    QTimer timer_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, QMainWindow& window) {
    return std::make_unique<StatusBarPeer>(bar, window);
}

}  // namespace qt
