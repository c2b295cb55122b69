#include <QFrame>
#include <QPixmap>

#include "platform/linux/qt/accessibility.h"
#include "platform/linux/qt/caption_label.h"
#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class LabelPeer : public PeerOf<forms::Label, CaptionLabel> {
  public:
    LabelPeer(forms::Label& label, QWidget& parent) : PeerOf(label, new CaptionLabel(&parent)) {
        widget_.setAlignment(label.centred ? Qt::AlignHCenter : Qt::AlignLeft);
    }

  protected:
    void draw() override { widget_.setCaption(QString::fromStdString(control_.Caption)); }

    void updateGeometry() override {
        QRect place = scale().placeOf(control_);
        if (control_.autoSize) {
            const QSize size = widget_.sizeOf(QString::fromStdString(control_.Caption));
            const int beside = control_.centred ? (place.width() - size.width()) / 2 : 0;
            place = {place.topLeft() + QPoint(beside, 0), size};
        }
        widget_.setGeometry(place);
    }
};

class LinePeer : public PeerOf<forms::Line, QFrame> {
  public:
    LinePeer(forms::Line& line, QWidget& parent)
        : PeerOf(line, makeWithRole<QFrame>(QAccessible::Separator, parent)) {
        widget_.setBackgroundRole(line.light ? QPalette::Light : QPalette::Mid);
        widget_.setAutoFillBackground(true);
    }

  protected:
    void updateGeometry() override {
        const QRect place = scale().placeOf(control_);
        widget_.setGeometry({place.topLeft(), place.size().expandedTo({1, 1})});
    }
};

class ImagePeer : public PeerOf<forms::Image, QLabel> {
  public:
    ImagePeer(forms::Image& image, QWidget& parent) : PeerOf(image, new QLabel(&parent)) {
        const QString file = ":/pictures/" + QString::fromStdString(image.picture) + ".png";
        widget_.setPixmap(QPixmap(file));
        widget_.setScaledContents(true);
    }
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::Label& label, QWidget& parent) {
    return std::make_unique<LabelPeer>(label, parent);
}

std::unique_ptr<ControlPeer> makePeer(forms::Line& line, QWidget& parent) {
    return std::make_unique<LinePeer>(line, parent);
}

std::unique_ptr<ControlPeer> makePeer(forms::Image& image, QWidget& parent) {
    return std::make_unique<ImagePeer>(image, parent);
}

}  // namespace qt
