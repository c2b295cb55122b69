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

/// A control, or an item of one, as a screen reader knows it.
struct AccessibleObject {
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
    [[nodiscard]] std::vector<AccessibleObject> window(const std::string& program) const;
    /// The same for the window that appeared last, active or not.
    [[nodiscard]] std::vector<AccessibleObject> top(const std::string& program) const;
    /// Triggers the object's first action, such as Press or Toggle. Waits until a button that it
    /// presses is released, but not for a dialog that it opens.
    void act(const AccessibleObject& object) const;
    void setText(const AccessibleObject& object, const std::string& text) const;
    [[nodiscard]] std::string text(const AccessibleObject& object) const;
    /// Returns the object's current states.
    [[nodiscard]] quint64 states(const AccessibleObject& object) const;

  private:
    [[nodiscard]] QVariant call(const AccessibleObject& object, const char* interface,
                                const char* method, const QVariantList& arguments = {}) const;
    [[nodiscard]] std::vector<AccessibleObject> children(const AccessibleObject& object) const;
    [[nodiscard]] std::string property(const AccessibleObject& object, const char* name) const;
    [[nodiscard]] QRect place(const AccessibleObject& object) const;
    void send(const AccessibleObject& object, const char* interface, const char* method,
              const QVariantList& arguments) const;
    [[nodiscard]] std::vector<AccessibleObject> windows(const std::string& program) const;
    void read(AccessibleObject object, std::vector<AccessibleObject>& all) const;

    QDBusConnection bus_;
};

}  // namespace tour
