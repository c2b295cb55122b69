#pragma once

#include <QApplication>
#include <future>

namespace qt {

/// Qt's application. Looks up the system's fonts while QApplication connects to the display: both
/// are slow and independent.
class QtApplication {
  public:
    /// Uses only the program's name of main's arguments.
    explicit QtApplication(char** arguments);

  private:
    int count_ = 1;
    std::future<void> fonts_;
    QApplication application_;
};

}  // namespace qt
