#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "child.h"

struct _XDisplay;

namespace tour {

/// A window as it stands on the display, in pixels.
struct Window {
    unsigned long id;
    int left;
    int top;
};

/// A display of the tour's own that nobody sees, with a keyboard and a mouse. It has no window
/// manager: the tour gives the focus and closes windows itself.
class Display {
  public:
    /// Starts the display and makes it the one that the tour's processes use.
    Display();
    ~Display();

    /// The top window that is in view and bears the title, except the one with the id; menus and
    /// tooltips do not count. A title that begins with a blank is the end of one.
    [[nodiscard]] std::optional<Window> find(std::string_view title, unsigned long except) const;
    /// The window with the id where it stands now, if it is in view.
    [[nodiscard]] std::optional<Window> inView(unsigned long id) const;

    /// Puts the window on top and lets it have the keys.
    void focus(const Window& window) const;
    /// Takes the keys from all windows, so that the next to get them becomes the active one anew.
    void unfocus() const;
    /// Asks the window to close, as its close box would.
    void close(const Window& window) const;
    void click(int x, int y) const;
    /// Presses a key, with others held: "Alt+D", "Ctrl+Shift+Tab". Names are those of X.
    void press(const std::string& keys) const;
    void type(std::string_view text) const;
    /// Takes a picture of the whole display.
    void picture(const std::filesystem::path& file) const;

  private:
    [[nodiscard]] std::string title(unsigned long window) const;
    void key(unsigned long symbol, std::vector<unsigned long> held) const;
    [[nodiscard]] unsigned long atom(const char* name) const;

    std::unique_ptr<Child> server_;
    _XDisplay* connection_ = nullptr;
};

}  // namespace tour
