#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/control.h"

/// The kinds of control, but for the two in file_lists.h. Each has the properties that the program
/// uses and an entry for each thing that a user can do to it; peers and tests call the same
/// entries.
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

    const bool centred;
    const bool autoSize;  ///< as large as its text; a centred one keeps the centre of its place
};

/// A line drawn for decoration. It fills its place, and has no name to read aloud.
class Line : public Control {
  public:
    Line(Container& parent, const Definition& definition)
        : Control(&parent, definition), light(definition.light) {}
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] std::string accessibleName() const override { return {}; }

    const bool light;  ///< lighter than the ground, and otherwise darker
};

/// Two lines, a dark one above a light one, that together look like a groove in the ground.
class Groove {
  public:
    /// Left, top and width in twips. Of the definitions only names and indices count.
    Groove(Container& parent, Definition dark, Definition light, int left, int top, int width);

  private:
    static constexpr int thickness = 15;

    Line dark_;
    Line light_;
};

/// A picture, named by the text of its definition.
class Image : public Control {
  public:
    Image(Container& parent, const Definition& definition)
        : Control(&parent, definition), picture(definition.text) {}
    void accept(ControlVisitor& visitor) override;

    const std::string picture;
};

class Button : public Control {
  public:
    Button(Container& parent, const Definition& definition)
        : Control(&parent, definition),
          isDefault(definition.isDefault),
          isCancel(definition.isCancel) {}
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] bool takesEnter() const override { return true; }

    const bool isDefault;
    const bool isCancel;
};

class CheckBox : public Control {
  public:
    CheckBox(Container& parent, const Definition& definition)
        : Control(&parent, definition), Value(*this, definition.ticked ? 1 : 0, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;

    Property<int> Value;  ///< 0 not ticked, 1 ticked

  protected:
    void clicked() override { Value = Value ? 0 : 1; }
};

/// One of the options of its container, of which at most one is selected. Selecting one clears
/// the others without running their handlers; clearing one runs no handler.
class OptionButton : public Control {
  public:
    OptionButton(Container& parent, const Definition& definition)
        : Control(&parent, definition), Value(*this, definition.ticked, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;
    void changed(Effect effect) override;

    Property<bool> Value;

    /// True if Tab reaches the option, as it does one of each container: the selected one, and
    /// where none is selected that can be used, the first that can be.
    [[nodiscard]] bool isTabStop() const;
    /// The option that an arrow key leads to: the next of the container that can be used, or, with
    /// a negative step, the one before; round at the ends.
    OptionButton& beside(int step);

  protected:
    /// A click on the selected option runs its handler again.
    void clicked() override {
        if (Value) return raise();
        Value = true;
    }

  private:
    /// The options of the container, this one among them.
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
    [[nodiscard]] bool takesEnter() const override { return multiLine && !readOnly; }

    const bool readOnly;
    const bool multiLine;
    const bool holdsPath;
    Property<std::string> Text;

    /// The user has edited the text, which now reads as given as far as the box can hold it.
    void type(const std::string& text);
    /// The part of the text that the box can hold: of one line, the text before the first line
    /// break without control characters.
    [[nodiscard]] std::string fitting(const std::string& text) const;

  protected:
    void clicked() override {}
};

/// A frame around other controls. Without a caption it is drawn without a border.
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

/// A list of texts, counted from 0.
class ListBox : public Control {
  public:
    ListBox(Container& parent, Definition definition)
        : Control(&parent, std::move(definition)), ListIndex(*this, -1, Effect::Raise) {}
    void accept(ControlVisitor& visitor) override;

    Property<int> ListIndex;  ///< the selected entry, -1 for none

    /// Empties the list, and with it the selection, without running a handler.
    void Clear();
    /// Adds an entry at the end, or in front of the entry at index.
    void AddItem(const std::string& text, std::optional<int> index = {});
    /// Removes the entry at index. If it was selected, nothing is selected afterwards, and no
    /// handler runs.
    void RemoveItem(int index);
    void setList(int index, const std::string& text);
    [[nodiscard]] const std::string& List(int index) const { return items_.at(index); }
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    /// The selected entry, empty where there is none.
    [[nodiscard]] std::string Text() const;

    /// The user selects the entry at index.
    void pick(int index);

  protected:
    void clicked() override {}

  private:
    std::vector<std::string> items_;
};

/// A row of tabs, counted from 1.
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
    Property<int> SelectedItem;  ///< index of the selected tab; an assignment always runs the click

    /// The user selects the tab with the index, from 1.
    void pick(int index);
};

/// The bar along the bottom edge of a form. It keeps date and time current by itself.
class StatusBar : public Control {
  public:
    enum class Panel { Text, Date, Time };

    StatusBar(Container& parent, Definition definition, std::vector<Panel> panels)
        : Control(&parent, std::move(definition)), Panels(std::move(panels)) {}
    void accept(ControlVisitor& visitor) override;

    const std::vector<Panel> Panels;
};

/// An item of the menu bar, or of the menu that it stands in. The caption "-" makes a separator.
class MenuItem : public Container {
  public:
    MenuItem(Container& parent, Definition definition)
        : Container(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;
};

/// The system's dialog for choosing a file, which stays on a form unseen and keeps its values
/// between uses.
class CommonDialog : public Control {
  public:
    CommonDialog(Container& parent, Definition definition)
        : Control(&parent, std::move(definition)) {}
    void accept(ControlVisitor& visitor) override;

    std::string DialogTitle;
    std::string Filter;    ///< pairs of description and pattern, all parted by "|"
    std::string FileName;  ///< going in the name offered, coming out the name chosen

    /// Lets the user choose a file, modally. FileName stays as it was if the user cancels.
    void ShowOpen();
};

/// Controls that share a name and are told apart by an index, which may have gaps. A click or
/// change of one of them passes its index to the handler.
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
    /// An array whose controls lie in several containers; add gives it one after the other.
    explicit ControlArray(std::string name, Handler handler = {})
        : name_(std::move(name)), handler_(std::move(handler)) {}

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

/// Does one thing for each kind of control.
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
