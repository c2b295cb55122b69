#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/application.h"
#include "platform/linux/qt/file_dialog.h"
#include "platform/linux/qt/units.h"

namespace qt {

/// Creates windows with Qt. Needs a QApplication that outlives the toolkit; its exec() is the
/// message loop. The scale of all windows is that of the screen and the user's font at the start.
class QtToolkit : public forms::Toolkit {
  public:
    QtToolkit(ToHost toHost, ToWindows toWindows);

    /// Chooses the one font of the program, in which every caption of these forms fits. Without it
    /// the program has the user's own font. Call this before the first window is built.
    void chooseFont(const std::vector<std::unique_ptr<forms::Form>>& forms);

    void build(forms::Form& form) override;
    /// Throws forms::RuntimeError if the name chosen is longer than 260 characters.
    std::string chooseFile(forms::Form& owner, const forms::FileQuestion& question) override;
    void quit() override;

  private:
    const Scale scale_;
    ToWindows toWindows_;
    FileChooser files_;
};

}  // namespace qt
