#pragma once

#include <utility>

namespace forms {

class Control;

/// The effect of assigning a property.
enum class Effect {
    Draw,        ///< the peer draws the new value
    Raise,       ///< the peer draws it, then the control's handler runs
    RaiseAlways  ///< as Raise, and also when the value stays the same
};

/// A property of a control. It reads as its value. Assigning a different value stores it, updates
/// the peer and runs the control's handler before returning. Assigning the same value has no
/// effect, except with Effect::RaiseAlways.
template <typename T>
class Property {
  public:
    Property(Control& owner, T value, Effect effect = Effect::Draw)
        : owner_(owner), value_(std::move(value)), effect_(effect) {}
    Property(const Property&) = delete;

    operator const T&() const { return value_; }
    const T& operator()() const { return value_; }

    void operator=(const Property& other) { *this = other.value_; }
    void operator=(T value);

    /// Appends to a text.
    void operator+=(const T& more) { *this = value_ + more; }

    /// Stores a value without drawing it or running a handler.
    void store(T value) { value_ = std::move(value); }

  private:
    Control& owner_;
    T value_;
    Effect effect_;
};

}  // namespace forms
