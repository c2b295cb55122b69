#pragma once

class QWidget;

namespace qt {

/// True if the widget shows its whole caption: nothing of it is cut off or left out. A text field
/// fits if a line of text does.
bool captionFits(const QWidget& widget);

/// Gives the window the largest font from 10 to 7 points in which every caption in it fits: the
/// desktop's own, or a narrower one where that can be larger.
void fitFont(QWidget& window);

}  // namespace qt
