#include "platform/linux/qt/caption_label.h"

#include <QFontMetricsF>
#include <algorithm>

namespace qt {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void CaptionLabel::setCaption(const QString& caption) {
    setWordWrap(contentsRect().height() >= 2 * fontMetrics().lineSpacing());
    setAlignment((alignment() & Qt::AlignHorizontal_Mask) |
                 (wordWrap() ? Qt::AlignTop : Qt::AlignVCenter));
    setText(wordWrap() ? caption
                       : fontMetrics().elidedText(caption, Qt::ElideMiddle, contentsRect().width(),
                                                  buddy() ? Qt::TextShowMnemonic : 0));
}

QSize CaptionLabel::sizeOf(const QString& caption) const {
    const QFontMetricsF metrics(font());
    const double slanted = metrics.boundingRect(caption).right();  // italics reach further
    const double width = std::max(metrics.horizontalAdvance(caption), slanted);
    return QSizeF(width, metrics.height()).toSize() + QSize(1, 1);
}

}  // namespace qt
