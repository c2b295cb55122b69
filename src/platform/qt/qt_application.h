#pragma once

#include <QApplication>
#include <thread>

namespace qt {

/// Qt's application. The system's fonts are looked up while it greets the screen: either takes a
/// good part of the start, and neither needs the other.
class QtApplication {
  public:
    /// Takes the program's name from the arguments of main, and nothing else. lookUpFonts runs in a
    /// thread of its own.
    QtApplication(char** arguments, void (*lookUpFonts)());

  private:
    int count_ = 1;
    std::jthread fonts_;
    QApplication application_;
};

}  // namespace qt
