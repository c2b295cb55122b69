#pragma once

#include <QString>
#include <string>

#include "forms/application.h"
#include "platform/linux/qt/file_input.h"

class QWidget;

namespace qt {

/// Lets the user choose a file, in the folder where the last one was chosen.
class FileChooser {
  public:
    FileChooser(ToHost toHost, ToWindows toWindows);

    /// Shows a file dialog above the owner. Returns an empty string if the user cancels. Throws
    /// forms::RuntimeError if the name chosen is longer than 260 characters.
    std::string choose(QWidget& owner, const forms::FileQuestion& question);

  private:
    ToHost toHost_;
    ToWindows toWindows_;
    QString folder_;  ///< where the last file was chosen
};

}  // namespace qt
