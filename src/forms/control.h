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
class OptionButton;
class TextBox;

/// A control's rectangle in its container, in twips (1440 per inch, 15 per pixel at 96 dpi).
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// A control's font; an empty family means the form's own font.
struct Font {
    std::string family = {};
    double points = 0;
    bool italic = false;

    bool operator==(const Font&) const = default;
};

/// A control as its form declares it. Texts are UTF-8; "&" marks the mnemonic in a caption.
struct Definition {
    std::string name = {};
    int index = -1;  ///< in a control array; -1 outside of one
    std::string caption = {};
    std::string text = {};
    std::string tooltip = {};
    std::string accessibleName = {};  ///< read by screen readers where the caption is not enough
    Place place = {};
    bool ticked = false;  ///< initial value of a check box or an option button
    bool visible = true;
    bool enabled = true;
    bool isDefault = false;  ///< the button that Enter presses
    bool isCancel = false;   ///< the button that Esc presses
    bool readOnly = false;
    bool multiLine = false;
    bool holdsPath = false;  ///< a text box for the path of a file or folder
    bool centred = false;
    bool autoSize = false;  ///< a label that takes the size of its text
    bool light = false;     ///< a line lighter than the background
    Font font = {};
    std::function<void()> event = {};  ///< the control's click or change handler
};

/// The native side of a control. An update applies the control's whole state. The control outlives
/// its peer.
class Peer {
  public:
    virtual ~Peer() = default;
    virtual void update() = 0;
};

/// A control: a name, properties and one event, independent of any toolkit. Controls are declared
/// in their container in reading order, which is also the tab order, and leave it when they die.
class Control {
  public:
    Control(Container* parent, Definition definition);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    const std::string name;
    const int index;
    const std::string tooltip;
    const std::string definedAccessibleName;
    const Font font;
    const bool isDefault;
    const bool isCancel;

    Property<std::string> Caption;
    Property<int> Left;
    Property<int> Top;
    Property<int> Width;
    Property<int> Height;
    Property<bool> Enabled;
    Property<bool> Visible;

    virtual void accept(ControlVisitor& visitor) = 0;

    /// Returns the name, with the index if the control is in an array: "optFormat(2)".
    [[nodiscard]] std::string fullName() const;
    /// Returns the name for screen readers: the definition's, or else the caption without "&", or
    /// else the one that the control declared before it gives, or else the container's name.
    [[nodiscard]] virtual std::string accessibleName() const;
    /// Returns a label's name for the control declared after it; empty for the other kinds.
    [[nodiscard]] virtual std::string nameForNext() const { return {}; }
    /// Returns the mnemonic in upper case, or 0.
    [[nodiscard]] char mnemonic() const;
    /// True if the control is visible and not moved out of its container to the left, where it is
    /// hidden from screen readers too.
    [[nodiscard]] bool inSight() const { return Visible && Left + Width > 0; }
    /// True if the control and all its containers are visible and enabled.
    [[nodiscard]] bool usable() const;
    [[nodiscard]] Container* parent() const { return parent_; }
    /// The direct children, in declaration order. Only a container has any.
    [[nodiscard]] const std::vector<Control*>& children() const { return children_; }
    /// Returns all descendants in tab order, containers before their contents.
    [[nodiscard]] std::vector<Control*> allControls() const;
    /// Returns the form that the control belongs to.
    [[nodiscard]] virtual Form& form();

    void attach(std::unique_ptr<Peer> peer) { peer_ = std::move(peer); }
    [[nodiscard]] Peer* peer() const { return peer_.get(); }

    /// Replaces the handler. The tests of windows need it: they log which handlers run.
    void setHandler(std::function<void()> handler) { event_ = std::move(handler); }

    /// Moves the keyboard focus to the control.
    void SetFocus();
    /// Performs a click: by the user or by the mnemonic.
    void click();
    /// True if a focused control handles Enter itself instead of the default button.
    [[nodiscard]] virtual bool takesEnter() const { return false; }
    /// True for an item of a menu.
    [[nodiscard]] virtual bool inMenu() const { return false; }
    /// Returns the control itself if it is an option, or else null.
    virtual OptionButton* option() { return nullptr; }
    /// Returns the control itself if it is a box for the path of a file or folder, or else null.
    virtual TextBox* pathBox() { return nullptr; }

    /// Applies the effect of a changed property. Called by properties only.
    virtual void changed(Effect effect);

  protected:
    /// The action of a click; called inside Application::dispatch.
    virtual void clicked() { raise(); }
    /// Runs a user's action through Application::dispatch, if the control is usable.
    void act(const std::function<void()>& action);
    void draw();
    void raise();

  private:
    Container* parent_;
    std::vector<Control*> children_;
    std::function<void()> event_;
    std::unique_ptr<Peer> peer_;
};

/// A control that contains others.
class Container : public Control {
  public:
    using Control::Control;
};

template <typename T>
void Property<T>::operator=(T value) {
    if (effect_ != Effect::RaiseAlways && value == value_) return;
    value_ = std::move(value);
    owner_.changed(effect_);
}

/// Returns the caption without the "&" of its mnemonic.
std::string withoutMnemonic(const std::string& caption);

}  // namespace forms
