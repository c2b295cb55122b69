#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct _XDisplay;

namespace tour {

/// A window and its upper left corner on the display, in pixels.
struct Window {
    unsigned long id;
    int left;
    int top;
    int width;
};

/// The display, with keyboard and mouse. It has no window manager: the tour sets the focus and
/// closes windows itself.
class Display {
  public:
    /// Connects to the display of the tour's child processes.
    Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display();

    /// Returns the topmost visible window with the title, except the one with the id and except
    /// menus and tooltips. A title that begins with a blank matches the end of the window's.
    [[nodiscard]] std::optional<Window> find(std::string_view title, unsigned long except) const;
    /// Returns the window with the id at its current position, if it is visible.
    [[nodiscard]] std::optional<Window> inView(unsigned long id) const;

    /// Raises the window and gives it the focus.
    void focus(const Window& window) const;
    /// Removes the focus from all windows, so that the next one to get it is activated again.
    void unfocus() const;
    /// Asks the window to close, as its close box does.
    void close(const Window& window) const;
    void click(int x, int y) const;
    /// Presses a key with modifiers: "Alt+D", "Ctrl+Shift+Tab". Key names are those of X.
    void press(const std::string& keys) const;
    void type(std::string_view text) const;
    /// Takes a screenshot of the whole display.
    void picture(const std::filesystem::path& file) const;

  private:
    [[nodiscard]] std::string title(unsigned long window) const;
    void key(unsigned long symbol, std::vector<unsigned long> held) const;
    [[nodiscard]] unsigned long atom(const char* name) const;

    _XDisplay* connection_ = nullptr;
};

}  // namespace tour
