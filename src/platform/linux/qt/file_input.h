#pragma once

#include <QClipboard>
#include <QObject>
#include <functional>
#include <string>

#include "forms/form.h"

class QDropEvent;
class QLineEdit;
class QMainWindow;

namespace qt {

/// Converts a Windows path to a host path, or back. Both are in UTF-8.
using PathMap = std::function<std::string(const std::string&)>;

/// Accepts files that the user drops on a form or pastes as host paths, and converts them to
/// Windows paths.
class FileInput : public QObject {
  public:
    /// Form and window must outlive the object.
    FileInput(forms::Form& form, QMainWindow& window, PathMap toWindows);
    /// Filters the events of all widgets inside `widget`.
    void watch(const QWidget& widget);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool drop(QWidget& on, QDropEvent& event);
    bool paste(QLineEdit& edit, QClipboard::Mode mode);
    bool openMenu(QLineEdit& edit, const QPoint& place);
    [[nodiscard]] std::string windowsPath(const std::string& text) const;

    forms::Form& form_;
    QMainWindow& window_;
    PathMap toWindows_;
};

}  // namespace qt
