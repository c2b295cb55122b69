#pragma once

#include <string>

#include "forms/application.h"
#include "platform/linux/qt/file_dialog.h"

namespace qt {

/// Creates windows with Qt. Needs a QApplication that outlives the toolkit; its exec() is the
/// message loop.
class QtToolkit : public forms::Toolkit {
  public:
    QtToolkit(ToHost toHost, ToWindows toWindows);

    void build(forms::Form& form) override;
    /// Throws forms::RuntimeError if the name chosen is longer than 260 characters.
    std::string chooseFile(forms::Form& owner, const forms::FileQuestion& question) override;
    void quit() override;

  private:
    ToWindows toWindows_;
    FileChooser files_;
};

}  // namespace qt
