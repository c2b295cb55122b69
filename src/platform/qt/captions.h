#pragma once

class QWidget;

namespace qt {

/// True if the widget shows its whole caption: nothing of it is cut off or left out. A text field
/// fits if a line of text does.
bool captionFits(const QWidget& widget);

/// Gives the window the desktop's font in the largest size from 10 to 7 points at which every
/// caption in it fits; where none does, a narrower family.
void fitFont(QWidget& window);

}  // namespace qt
