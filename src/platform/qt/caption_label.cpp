#include "platform/qt/caption_label.h"

#include <QEvent>

namespace qt {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void CaptionLabel::setCaption(const QString& caption) {
    caption_ = caption;
    fit();
}

int CaptionLabel::textFlags() const {
    return (buddy() ? Qt::TextShowMnemonic : 0) | (wordWrap() ? Qt::TextWordWrap : 0);
}

void CaptionLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void CaptionLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) fit();
}

void CaptionLabel::fit() {
    setWordWrap(contentsRect().height() >= 2 * fontMetrics().lineSpacing());
    setAlignment((alignment() & Qt::AlignHorizontal_Mask) |
                 (wordWrap() ? Qt::AlignTop : Qt::AlignVCenter));
    setText(wordWrap() ? caption_
                       : fontMetrics().elidedText(caption_, Qt::ElideMiddle, contentsRect().width(),
                                                  textFlags()));
}

}  // namespace qt
