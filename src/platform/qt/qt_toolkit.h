#pragma once

#include <QString>
#include <string>

#include "forms/application.h"
#include "platform/qt/file_input.h"

namespace qt {

/// Creates windows with Qt. Needs a QApplication that outlives the toolkit; its exec() is the
/// message loop.
class QtToolkit : public forms::Toolkit {
  public:
    QtToolkit(PathMap toHost, PathMap toWindows);

    void build(forms::Form& form) override;
    /// Throws forms::RuntimeError if the name chosen is longer than 260 characters.
    std::string chooseFile(forms::Form& owner, const forms::FileQuestion& question) override;
    void quit() override;

  private:
    PathMap toHost_;
    PathMap toWindows_;
    QString folder_;  ///< where the last file was chosen
};

}  // namespace qt
