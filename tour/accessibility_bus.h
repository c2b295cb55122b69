#pragma once

#include <QDBusConnection>
#include <QRect>
#include <string>
#include <vector>

namespace tour {

/// States; the values are the bus's bit numbers.
enum class State {
    Active = 1,
    Checked = 4,
    Editable = 7,
    Enabled = 8,
    Focused = 12,
    Pressed = 20,
    Selected = 23,
    Showing = 25,
    ReadOnly = 44,
};

/// What a screen reader learns about a control or an item of one.
struct Spoken {
    QString service;
    QString path;
    std::string role;
    std::string name;
    quint64 states = 0;
    QRect place;      ///< on the screen
    int parent = -1;  ///< index in the list that it was read with

    [[nodiscard]] bool is(State state) const { return states >> static_cast<int>(state) & 1; }
};

/// The session's accessibility bus, as a screen reader uses it.
class AccessibilityBus {
  public:
    /// Throws std::runtime_error if the session has no bus.
    AccessibilityBus();

    /// Returns all visible objects of the program's active window, containers before their
    /// contents, or an empty list if there is no active window.
    [[nodiscard]] std::vector<Spoken> window(const std::string& program) const;
    /// The same for the window that appeared last, active or not.
    [[nodiscard]] std::vector<Spoken> top(const std::string& program) const;
    /// Triggers the object's first action, such as Press or Toggle. Waits until a button that it
    /// presses is released, but not for a dialog that it opens.
    void act(const Spoken& object) const;
    void setText(const Spoken& object, const std::string& text) const;
    [[nodiscard]] std::string text(const Spoken& object) const;
    /// Returns the object's current states.
    [[nodiscard]] quint64 states(const Spoken& object) const;

  private:
    [[nodiscard]] QVariant call(const Spoken& object, const char* interface, const char* method,
                                const QVariantList& arguments = {}) const;
    [[nodiscard]] std::vector<Spoken> children(const Spoken& object) const;
    [[nodiscard]] std::string property(const Spoken& object, const char* name) const;
    [[nodiscard]] QRect place(const Spoken& object) const;
    void send(const Spoken& object, const char* interface, const char* method,
              const QVariantList& arguments) const;
    [[nodiscard]] std::vector<Spoken> windows(const std::string& program) const;
    void read(Spoken object, std::vector<Spoken>& all) const;

    QDBusConnection bus_;
};

}  // namespace tour
