#pragma once

#include <QObject>

#include "forms/application.h"

namespace qt {

/// Waits for the system to ask the program to end: by SIGTERM, SIGHUP or SIGINT, or by the desktop
/// when its user logs off. Then the first form is closed as by its close box, and the dialogs and
/// boxes that are open go with it. A second signal ends the program at once.
class EndRequest : public QObject {
  public:
    /// There must be a QApplication, and no other object of this class. A signal that the program
    /// was started to ignore stays ignored.
    explicit EndRequest(forms::Application& application);
    ~EndRequest() override;
    EndRequest(const EndRequest&) = delete;
    EndRequest& operator=(const EndRequest&) = delete;

  protected:
    /// Takes the event that Qt makes of the desktop's request.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end();

    forms::Application& application_;
    int pipe_[2] = {-1, -1};
};

}  // namespace qt
