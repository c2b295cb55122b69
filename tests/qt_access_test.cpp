#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"
#include "qt_windows.h"

namespace {

using namespace forms;

/// Assistive technology, which meets a control of any kind and acts on it. A control that is in use
/// must follow, and another one must not.
struct Assistant : ControlVisitor {
    Assistant(QMainWindow& window, std::string& heard) : window(window), heard(heard) {}

    void meet(Control& control) {
        SCOPED_TRACE(control.form().name + " " + control.fullName());
        if (dynamic_cast<CommonDialog*>(&control)) return;
        ASSERT_TRUE(control.peer());
        auto* peer = dynamic_cast<qt::ControlPeer*>(control.peer());
        spoken = peer ? QAccessible::queryAccessibleInterface(&peer->widget()) : nullptr;
        name = control.accessibleName();
        help = control.tooltip;
        heard.clear();
        const bool labelled = role == QAccessible::StaticText;  // the control before is a label
        control.accept(*this);
        ASSERT_TRUE(spoken);
        EXPECT_EQ(spoken->role(), role);
        EXPECT_EQ(textOf(*spoken), name);
        EXPECT_EQ(spoken->text(QAccessible::Description), ::name(help).trimmed());
        EXPECT_TRUE(!control.Visible || role == QAccessible::Separator ||
                    spoken->state().disabled != control.usable());
        if (stops.empty() || stops.back() != &control || !control.usable()) return;
        EXPECT_NE(name, "");
        EXPECT_TRUE(!labelled || !control.Caption().empty() ||
                    !spoken->relations(QAccessible::Label).isEmpty());
        EXPECT_FALSE(spoken->state().invisible);
        EXPECT_TRUE(role == QAccessible::PageTabList || names.insert(name).second) << name;
    }

    void visit(Label&) override { role = QAccessible::StaticText; }
    void visit(Line&) override { role = QAccessible::Separator; }
    void visit(Image&) override { role = QAccessible::Graphic; }
    void visit(PictureBox&) override { role = QAccessible::PropertyPage; }
    void visit(Frame& frame) override {
        role = frame.Caption().empty() ? QAccessible::Client : QAccessible::Grouping;
    }
    void visit(StatusBar&) override { role = QAccessible::StatusBar; }
    void visit(Button& button) override {
        take(button, QAccessible::Button);
        press(*spoken);
        EXPECT_TRUE(QTest::qWaitFor([&] { return heard == heardFrom(button); })) << heard;
    }
    void visit(CheckBox& box) override {
        take(box, QAccessible::CheckBox);
        for (int count = 0; count < 2; ++count) {
            const bool follows = box.usable() != (box.Value != 0);
            press(*spoken);
            EXPECT_EQ(box.Value, follows);
            EXPECT_EQ(spoken->state().checked, follows);
        }
        EXPECT_EQ(heard, heardFrom(box) + heardFrom(box));
    }
    void visit(OptionButton& option) override {
        take(option, QAccessible::RadioButton);
        const bool follows = option.usable() || option.Value;
        const bool silent = option.Value;  // pressed again, Qt does not tell
        press(*spoken);
        EXPECT_EQ(option.Value, follows);
        EXPECT_EQ(spoken->state().checked, follows);
        EXPECT_EQ(heard, silent ? "" : heardFrom(option));
    }
    void visit(TextBox& box) override {
        take(box, QAccessible::EditableText);
        EXPECT_EQ(spoken->state().readOnly, box.readOnly);
        const std::string before = box.Text;
        auto* text = spoken->editableTextInterface();
        ASSERT_TRUE(text);
        text->replaceText(0, spoken->textInterface()->characterCount(), "new");
        EXPECT_EQ(box.Text(), box.usable() && !box.readOnly ? "new" : before);
    }
    void visit(ListBox& list) override {
        take(list, QAccessible::List);
        while (list.ListCount() < 3)
            list.AddItem("c:\\" + std::to_string(list.ListCount()));
        const int before = list.ListIndex;
        for (const int row : {1, 0, 0, 2}) {
            press(*spoken->child(row));
            EXPECT_EQ(list.ListIndex, list.usable() ? row : before);
            expectSelected(*spoken, list.Text());
        }
    }
    void visit(DriveList& list) override {
        take(list, QAccessible::ComboBox);
        EXPECT_EQ(spoken->text(QAccessible::Description), ::name(name));
        help = name;  // Qt names it after its entry
        for (const int row : {1, 3, 3, 0}) {
            press(*spoken->child(0)->child(row));
            EXPECT_EQ(list.Drive(), list.drives()[row]);
            expectSelected(*spoken->child(0), list.Drive);
            name = list.Drive;
        }
    }
    void visit(FolderList& list) override {
        take(list, QAccessible::Tree);
        for (const std::size_t row : {0, 1}) {
            const std::string path = list.rows().at(row).path;
            press(*child(*spoken, list.rows()[row].name));
            EXPECT_EQ(list.Path(), path);
            // Without a reader on the bus, newer Qt does not bring the rows up to date.
            QObject* tree = spoken->object();
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(spoken));
            spoken = QAccessible::queryAccessibleInterface(tree);
            expectSelected(*spoken, list.rows()[list.openRow()].name);
        }
    }
    void visit(TabStrip& tabs) override {
        take(tabs, QAccessible::PageTabList);
        spoken = QAccessible::queryAccessibleInterface(window.findChild<QTabBar*>());
        const int before = tabs.SelectedItem;
        for (const int tab : {1, 2, 2, before}) {
            auto* page = spoken->child(tab - 1);
            press(*page);
            EXPECT_EQ(tabs.SelectedItem, tab);
            expectSelected(*spoken, tabs.Tabs[tab - 1].caption);
            EXPECT_EQ(page->role(), QAccessible::PageTab);
            EXPECT_EQ(page->text(QAccessible::Description), ::name(tabs.Tabs[tab - 1].tooltip));
            EXPECT_EQ(spoken->childAt(page->rect().x() + 2, page->rect().y() + 2), page);
        }
    }
    void visit(MenuItem& item) override {
        const auto* action = window.findChild<QAction*>(::name(item.fullName()));
        ASSERT_TRUE(action);
        auto* menu = qobject_cast<QWidget*>(action->parent());
        spoken = QAccessible::queryAccessibleInterface(menu)->child(
            static_cast<int>(menu->actions().indexOf(action)));
        const bool separates = item.Caption() == "-";
        role = separates ? QAccessible::Separator : QAccessible::MenuItem;
        if (separates) name = "";
        if (!item.children().empty() || separates) return;
        press(*spoken);
        EXPECT_EQ(heard, heardFrom(item));
    }

    static std::string textOf(const QAccessibleInterface& object) {
        return object.text(QAccessible::Name).toStdString();
    }
    static QAccessibleInterface* child(const QAccessibleInterface& list, const std::string& text) {
        int index = list.childCount() - 1;
        while (index > 0 && textOf(*list.child(index)) != text)
            --index;
        return list.child(index);
    }
    static void press(QAccessibleInterface& object) {
        auto* actions = object.actionInterface();
        ASSERT_TRUE(actions);
        for (const QString& action : actions->actionNames().mid(0, 1))
            actions->doAction(action);
        QCoreApplication::processEvents();
    }
    /// Expects that the only selected entry of the list is the one with the text, if any.
    static void expectSelected(const QAccessibleInterface& list, const std::string& text) {
        std::string selected;
        for (int index = 0; index < list.childCount(); ++index)
            if (list.child(index)->state().selected) selected += textOf(*list.child(index));
        EXPECT_EQ(selected, text);
    }

    QMainWindow& window;
    std::string& heard;
    std::set<std::string> names;  ///< of the usable controls met
    std::vector<Control*> stops;  ///< the controls met that can take the focus

  private:
    void take(Control& control, QAccessible::Role kind) {
        role = kind;
        stops.push_back(&control);
    }
    static std::string heardFrom(const Control& control) {
        return control.usable() ? control.fullName() + " " : "";
    }

    QAccessibleInterface* spoken = nullptr;
    QAccessible::Role role = QAccessible::NoRole;
    std::string name;
    std::string help;
};

/// Expects that Tab stops at the controls in their order and then starts again.
void expectRound(const std::vector<Control*>& stops, QMainWindow& window) {
    stops.front()->SetFocus();
    for (const Control* stop : stops) {
        QWidget* focused = window.focusWidget();
        EXPECT_EQ(qt::controlOf(stops.front()->form(), focused), stop) << stop->fullName();
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(focused)->state().focused);
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    EXPECT_EQ(qt::controlOf(stops.front()->form(), window.focusWidget()), stops.front());
}

TEST_F(Windows, AssistiveTechnologyMeetsEveryControl) {
    for (Form* shown : fakes::everyForm(application, program)) {
        open(*shown);
        auto* console = dynamic_cast<console::frmConsole*>(shown);
        for (int tab = 1; console && tab <= 4; ++tab)
            console->tbsOptions.SelectedItem = tab;  // creates its panel
        for (int tab = console ? 4 : 1; tab > 0; --tab) {
            SCOPED_TRACE(shown->name + " " + std::to_string(tab));
            if (console) console->tbsOptions.SelectedItem = tab;
            Assistant assistant(*window, heard);
            for (Control* control : shown->allControls())
                assistant.meet(*control);
            std::erase_if(assistant.stops, [](const Control* control) {
                const auto* option = dynamic_cast<const OptionButton*>(control);
                return !control->usable() || (option && !option->isTabStop());
            });
            expectRound(assistant.stops, *window);
        }
    }
}

}  // namespace
