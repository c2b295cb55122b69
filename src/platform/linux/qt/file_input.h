#pragma once

#include <QClipboard>
#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "forms/form.h"
#include "platform/linux/disk/host_path.h"

class QDropEvent;
class QLineEdit;
class QMainWindow;

namespace qt {

/// Converts a Windows path to a host path. Returns nullopt if it is on no drive.
using ToHost = std::function<std::optional<platform::HostPath>(const std::string&)>;
/// Converts a host path to a Windows path.
using ToWindows = std::function<std::string(const platform::HostPath&)>;

/// Accepts files that the user drops on a form or pastes as host paths, and converts them to
/// Windows paths.
class FileInput : public QObject {
  public:
    /// Form and window must outlive the object.
    FileInput(forms::Form& form, QMainWindow& window, ToWindows toWindows);
    /// Filters the events of all widgets inside `widget`.
    void watch(const QWidget& widget);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool drop(QWidget& on, QDropEvent& event);
    bool paste(QLineEdit& edit, QClipboard::Mode mode);
    bool openMenu(QLineEdit& edit, const QPoint& place);
    [[nodiscard]] std::optional<std::string> windowsPath(const QString& text) const;

    forms::Form& form_;
    QMainWindow& window_;
    ToWindows toWindows_;
};

}  // namespace qt
