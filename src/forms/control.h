#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/property.h"

namespace forms {

class Container;
class ControlVisitor;
class Form;

/// Where a control lies in its container, in twips (1440 to the inch, 15 to a pixel at 96 dpi).
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// A font that a control asks for; an empty family stands for the form's own font.
struct Font {
    std::string family = {};
    double points = 0;
    bool italic = false;

    bool operator==(const Font&) const = default;
};

/// A control as its form's definition has it. All texts are UTF-8; "&" marks a mnemonic.
struct Definition {
    std::string name = {};
    int index = -1;  ///< in a control array; -1 for a control of its own
    std::string caption = {};
    std::string text = {};
    std::string tooltip = {};
    std::string spoken = {};  ///< what a screen reader calls it, where the caption does not tell
    Place place = {};
    bool ticked = false;  ///< a check box or an option button that starts selected
    bool visible = true;
    bool enabled = true;
    bool isDefault = false;  ///< the button that Enter presses
    bool isCancel = false;   ///< the button that Esc presses
    bool readOnly = false;
    bool multiLine = false;
    bool holdsPath = false;  ///< a text box for the path of a file or folder
    bool centred = false;
    bool autoSize = false;  ///< a label as large as its text
    bool light = false;     ///< a line lighter than the ground
    Font font = {};
    std::function<void()> event = {};  ///< the control's click or change handler
};

/// What draws a control on a screen. It draws the control's whole state each time; the control
/// outlives it.
class Peer {
  public:
    virtual ~Peer() = default;
    virtual void update() = 0;
};

/// A control: a name, properties and one event, with no idea of a toolkit. A control is declared
/// inside its container, in reading order, which is also the order of tabbing.
class Control {
  public:
    Control(Container* parent, Definition definition);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::string name;
    const int index;
    const std::string tooltip;
    const std::string spoken;
    const Font font;

    Property<std::string> Caption;
    Property<int> Left;
    Property<int> Top;
    Property<int> Width;
    Property<int> Height;
    Property<bool> Enabled;
    Property<bool> Visible;

    virtual void accept(ControlVisitor& visitor) = 0;

    /// The control's name, with its index where it belongs to an array: "optFormat(2)".
    [[nodiscard]] std::string fullName() const;
    /// What a screen reader calls the control: the definition's own word, else its caption without
    /// "&", else that of the label before it, and failing that its container's.
    [[nodiscard]] virtual std::string accessibleName() const;
    /// The letter, in upper case, that reaches the control together with Alt, or 0.
    [[nodiscard]] char mnemonic() const;
    /// True if the control is visible and has not been moved out of its container to the left, out
    /// of sight also for a screen reader.
    [[nodiscard]] bool inSight() const { return Visible && Left + Width > 0; }
    /// True if a user can work the control: it and all its containers are visible and enabled.
    [[nodiscard]] bool usable() const;
    [[nodiscard]] Container* parent() const { return parent_; }
    /// The form that the control belongs to.
    [[nodiscard]] virtual Form& form();

    void attach(std::unique_ptr<Peer> peer) { peer_ = std::move(peer); }
    [[nodiscard]] Peer* peer() const { return peer_.get(); }

    /// Gives the control its handler, where that belongs to another part of the program than the
    /// control's definition.
    void setHandler(std::function<void()> handler) { event_ = std::move(handler); }

    /// Moves the focus of the keyboard to the control.
    void SetFocus();
    /// A user's click on the control, or its mnemonic.
    void click();
    /// True if Enter works on the control while it has the focus, and not on the default button.
    [[nodiscard]] virtual bool takesEnter() const { return false; }

    /// Carries out what a changed property sets off. Only properties call it.
    virtual void changed(Effect effect);

  protected:
    /// What a click does; runs inside the dispatch boundary.
    virtual void clicked() { raise(); }
    /// Runs a user's action on a usable control inside the dispatch boundary; else does nothing.
    void act(const std::function<void()>& action);
    void draw();
    void raise();

  private:
    Container* parent_;
    std::function<void()> event_;
    std::unique_ptr<Peer> peer_;
};

/// A control that holds others.
class Container : public Control {
  public:
    using Control::Control;

    /// The controls directly inside, in the order of their declaration.
    [[nodiscard]] const std::vector<Control*>& children() const { return children_; }
    /// All controls inside, containers before their contents, in order of tabbing.
    [[nodiscard]] std::vector<Control*> allControls() const;

  private:
    friend class Control;
    std::vector<Control*> children_;
};

template <typename T>
void Property<T>::operator=(T value) {
    if (effect_ != Effect::RaiseAlways && value == value_) return;
    value_ = std::move(value);
    owner_.changed(effect_);
}

/// A caption as it is read aloud: without the "&" of its mnemonic.
std::string withoutMnemonic(const std::string& caption);

}  // namespace forms
