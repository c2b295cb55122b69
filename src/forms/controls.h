#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/control.h"

/// The kinds of control, except the two in file_lists.h. Each has the properties that the program
/// uses and one method for each user action; peers and tests call the same methods.
namespace forms {

class DriveList;
class FolderList;

class Label : public Control {
  public:
    Label(Container& parent, const Definition& definition)
        : Control(&parent, definition),
          centred(definition.centred),
          autoSize(definition.autoSize) {}
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] std::string nameForNext() const override { return withoutMnemonic(Caption); }

    const bool centred;
    const bool autoSize;  ///< as large as its text; if centred, around the centre of its place
};

/// A decorative line. It fills its place and has no accessible name.
class Line : public Control {
  public:
    Line(Container& parent, const Definition& definition)
        : Control(&parent, definition), light(definition.light) {}
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] std::string accessibleName() const override { return {}; }

    const bool light;  ///< lighter than the background instead of darker
};

/// A dark line above a light one, which together look like a groove.
class Groove {
  public:
    /// Where a groove lies in its container, in twips. Its height is fixed.
    struct Span {
        int left;
        int top;
        int width;
    };

    /// Only names and indices of the definitions are used.
    Groove(Container& parent, Definition dark, Definition light, const Span& span);

  private:
    static constexpr int thickness = 15;

    Line dark_;
    Line light_;
};

/// A picture; the definition's text is its name.
class Image : public Control {
  public:
    Image(Container& parent, const Definition& definition)
        : Control(&parent, definition), picture(definition.text) {}
    void accept(ControlVisitor& visitor) override;

    const std::string picture;
};

class Button : public Control {
  public:
    Button(Container& parent, Definition definition) : Control(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] bool takesEnter() const override { return true; }
};

class CheckBox : public Control {
  public:
    CheckBox(Container& parent, const Definition& definition)
        : Control(&parent, definition), Value(*this, definition.ticked ? 1 : 0, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;

    Property<int> Value;  ///< 0 unticked, 1 ticked

  protected:
    void clicked() override { Value = Value ? 0 : 1; }
};

/// An option; at most one per container is selected. Selecting one clears the others without
/// running their handlers; clearing one runs no handler.
class OptionButton : public Control {
  public:
    OptionButton(Container& parent, const Definition& definition)
        : Control(&parent, definition), Value(*this, definition.ticked, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;
    void changed(Effect effect) override;
    OptionButton* option() override { return this; }

    Property<bool> Value;

    /// True if Tab stops at the option. There is one stop per container: the selected option, or
    /// the first usable one if the selected one is unusable or missing.
    [[nodiscard]] bool isTabStop() const;
    /// Returns the option that an arrow key selects: the next usable one of the container, or the
    /// previous one if step is negative, wrapping around.
    OptionButton& nextOption(int step);

  protected:
    /// A click on the selected option runs its handler again.
    void clicked() override {
        if (Value) return raise();
        Value = true;
    }

  private:
    /// Returns the options of the container, including this one.
    [[nodiscard]] std::vector<OptionButton*> group() const;
};

class TextBox : public Control {
  public:
    TextBox(Container& parent, const Definition& definition)
        : Control(&parent, definition),
          readOnly(definition.readOnly),
          multiLine(definition.multiLine),
          holdsPath(definition.holdsPath),
          Text(*this, definition.text, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;
    TextBox* pathBox() override { return holdsPath ? this : nullptr; }

    const bool readOnly;
    const bool multiLine;
    const bool holdsPath;
    Property<std::string> Text;

    /// The user changed the text; stores the part of it that the box can hold.
    void type(const std::string& text);
    /// Returns the part of the text that a box of one line can hold: that before the first line
    /// break, without control characters. Boxes of several lines are read-only.
    [[nodiscard]] std::string fitting(const std::string& text) const;

  protected:
    void clicked() override {}
};

/// A frame around other controls. It has a border only if it has a caption.
class Frame : public Container {
  public:
    Frame(Container& parent, Definition definition) : Container(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;
};

/// A plain panel that holds other controls.
class PictureBox : public Container {
  public:
    PictureBox(Container& parent, Definition definition)
        : Container(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;
};

/// A list of strings; indices are 0-based.
class ListBox : public Control {
  public:
    ListBox(Container& parent, Definition definition)
        : Control(&parent, std::move(definition)), ListIndex(*this, -1, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;

    Property<int> ListIndex;  ///< index of the selected entry, or -1

    /// Removes all entries and the selection, without running a handler.
    void Clear();
    /// Adds an entry at the end, or before the entry at index.
    void AddItem(const std::string& text, std::optional<int> index = {});
    /// Removes the entry at index. If it was selected, the selection is cleared. Runs no handler.
    void RemoveItem(int index);
    void setList(int index, const std::string& text);
    [[nodiscard]] const std::string& List(int index) const { return items_.at(index); }
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    /// Returns the selected entry, or an empty string.
    [[nodiscard]] std::string Text() const;

    /// The user selects the entry at index.
    void pick(int index);

  protected:
    void clicked() override {}

  private:
    std::vector<std::string> items_;
};

/// A row of tabs; indices are 1-based.
class TabStrip : public Control {
  public:
    struct Tab {
        std::string caption;
        std::string tooltip;
    };

    TabStrip(Container& parent, Definition definition, std::vector<Tab> tabs)
        : Control(&parent, std::move(definition)),
          Tabs(std::move(tabs)),
          SelectedItem(*this, 1, Effect::RaiseAlways) {}
    void accept(ControlVisitor& visitor) override;

    const std::vector<Tab> Tabs;
    Property<int> SelectedItem;  ///< assigning it always runs the click handler

    /// The user selects the tab at index.
    void pick(int index);
};

/// The bar along the bottom edge of a form. Its peer keeps date and time current.
class StatusBar : public Control {
  public:
    enum class Panel { Text, Date, Time };

    StatusBar(Container& parent, Definition definition, std::vector<Panel> panels)
        : Control(&parent, std::move(definition)), Panels(std::move(panels)) {}
    void accept(ControlVisitor& visitor) override;

    const std::vector<Panel> Panels;
};

/// An item of the menu bar or of the menu that contains it. The caption "-" makes a separator.
class MenuItem : public Container {
  public:
    MenuItem(Container& parent, Definition definition)
        : Container(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] bool inMenu() const override { return true; }
};

/// The system's file dialog as an invisible control, which keeps its values between uses.
class CommonDialog : public Control {
  public:
    CommonDialog(Container& parent, Definition definition)
        : Control(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;

    std::string DialogTitle;
    std::string Filter;    ///< pairs of description and pattern, all separated by "|"
    std::string FileName;  ///< in: the initial name; out: the chosen name

    /// Shows the dialog modally. On cancel FileName is unchanged.
    void ShowOpen();
};

/// Controls that share a name and differ by an index, which may have gaps. The handler receives the
/// index of the control that was clicked or changed.
template <typename Kind>
class ControlArray {
  public:
    using Handler = std::function<void(int index)>;

    ControlArray(Container& parent, const std::string& name, std::vector<Definition> definitions,
                 const Handler& handler = {})
        : ControlArray(name, handler) {
        for (Definition& definition : definitions)
            add(parent, std::move(definition));
    }
    /// An array with controls in several containers, which are added one by one.
    explicit ControlArray(std::string name, Handler handler = {})
        : name_(std::move(name)), handler_(std::move(handler)) {}
    ControlArray(const ControlArray&) = delete;  // the controls' events refer to the array
    ControlArray& operator=(const ControlArray&) = delete;

    void add(Container& parent, Definition definition) {
        const int index = definition.index;
        definition.name = name_;
        if (handler_) definition.event = [this, index] { handler_(index); };
        controls_.emplace(index, std::make_unique<Kind>(parent, std::move(definition)));
    }

    Kind& operator()(int index) { return *controls_.at(index); }
    [[nodiscard]] const Kind& operator()(int index) const { return *controls_.at(index); }

  private:
    std::string name_;
    Handler handler_;
    std::map<int, std::unique_ptr<Kind>> controls_;
};

/// An operation with one overload per kind of control.
///
/// To add a kind of control:
/// 1. Declare its class above, with its properties and a method for each user action, and its
///    `accept` in controls.cpp.
/// 2. Declare its overload here. The compiler then names every visitor that lacks it: the ones that
///    create the peers, the one that fits the font, and the one that checks what a screen reader is
///    told.
/// 3. Write its peer for each toolkit, in platform/linux/qt and platform/windows/win32, and list
///    its source file in their CMakeLists.txt.
/// 4. In tests check it in qt_test.cpp and win32_test.cpp. Let the random walk of the windows
///    compare its value.
/// A control of the new kind on a form then needs its lines in the lists of what forms look like,
/// tests/forms.txt, widgets.txt and windows.txt.
class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;
    virtual void visit(Label& label) = 0;
    virtual void visit(Line& line) = 0;
    virtual void visit(Image& image) = 0;
    virtual void visit(Button& button) = 0;
    virtual void visit(CheckBox& box) = 0;
    virtual void visit(OptionButton& option) = 0;
    virtual void visit(TextBox& box) = 0;
    virtual void visit(Frame& frame) = 0;
    virtual void visit(PictureBox& panel) = 0;
    virtual void visit(ListBox& list) = 0;
    virtual void visit(DriveList& list) = 0;
    virtual void visit(FolderList& list) = 0;
    virtual void visit(TabStrip& tabs) = 0;
    virtual void visit(StatusBar& bar) = 0;
    virtual void visit(MenuItem& item) = 0;
};

}  // namespace forms
