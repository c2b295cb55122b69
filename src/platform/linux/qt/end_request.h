#pragma once

#include <QObject>
#include <functional>

#include "forms/application.h"

namespace qt {

/// True once the system has asked the program to end. Nobody may be there to answer a box.
bool isEnding();

/// Ends the program when the system asks for it: by SIGTERM, SIGHUP or SIGINT, or through the
/// desktop when the user logs off. Closes the first form as its close box does, and all open
/// dialogs and boxes. A second signal ends the program at once.
///
/// When the display server goes away, Qt ends the process itself. Then nothing but `save` runs,
/// which must not need a window.
class EndRequest : public QObject {
  public:
    /// Needs a QApplication. Only one object of this class may exist. A signal that was ignored
    /// when the program started stays ignored.
    EndRequest(forms::Application& application, std::function<void()> save);
    ~EndRequest() override;
    EndRequest(const EndRequest&) = delete;
    EndRequest& operator=(const EndRequest&) = delete;

  protected:
    /// Handles the event that Qt sends for the desktop's request.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end();

    forms::Application& application_;
    int pipe_[2] = {-1, -1};
};

}  // namespace qt
