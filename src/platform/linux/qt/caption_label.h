#pragma once

#include <QLabel>

namespace qt {

/// A label for plain text. Wraps its text if it is high enough for a second line, and otherwise
/// elides the middle of a text that is too long.
class CaptionLabel : public QLabel {
  public:
    explicit CaptionLabel(QWidget* parent);
    /// Fits the caption into the label's present size.
    void setCaption(const QString& caption);
    /// Returns the size of the caption on one line.
    [[nodiscard]] QSize sizeOf(const QString& caption) const;
};

}  // namespace qt
