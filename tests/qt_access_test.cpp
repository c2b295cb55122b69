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
        auto* peer = dynamic_cast<qt::ControlPeer*>(control.peer());
        spoken = peer ? QAccessible::queryAccessibleInterface(&peer->widget()) : nullptr;
        ASSERT_TRUE(spoken || dynamic_cast<MenuItem*>(&control));
        name = control.accessibleName();
        help = control.tooltip;
        heard.clear();
        const bool labelled = role == QAccessible::StaticText;  // the control before is a label
        control.accept(*this);
        if (!spoken) return;  // has failed, or is a menu item, whose words are Qt's
        EXPECT_EQ(spoken->role(), role);
        EXPECT_EQ(textOf(*spoken), name);
        EXPECT_EQ(spoken->text(QAccessible::Description), ::name(help).trimmed());
        EXPECT_TRUE(!control.Visible || role == QAccessible::Separator ||
                    spoken->state().disabled != control.usable());
        if (stops.empty() || stops.back() != &control) return;
        EXPECT_TRUE(!labelled || !control.Caption().empty() ||
                    !spoken->relations(QAccessible::Label).isEmpty());
        EXPECT_FALSE(spoken->state().invisible);
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
        press(spoken);
        EXPECT_TRUE(QTest::qWaitFor([&] { return heard == heardFrom(button); })) << heard;
    }
    void visit(CheckBox& box) override {
        take(box, QAccessible::CheckBox);
        for (int count = 0; count < 2; ++count)
            tick(box, box.usable() != (box.Value != 0));
        EXPECT_EQ(heard, heardFrom(box) + heardFrom(box));
    }
    void visit(OptionButton& option) override {
        take(option, QAccessible::RadioButton);
        const bool silent = option.Value;  // pressed again, Qt does not tell
        tick(option, option.usable() || option.Value);
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
        choose(list, {list.List(1), list.List(0), list.List(0), list.List(2)},
               [&] { return list.Text(); });
    }
    void visit(DriveList& list) override {
        take(list, QAccessible::ComboBox);
        EXPECT_EQ(spoken->text(QAccessible::Description), ::name(name));
        help = name;  // Qt names it after its entry
        choose(list, {"d:", "z:", "z:", "c:"}, [&] { return list.Drive(); });
        name = "c:";
    }
    void visit(FolderList& list) override {
        take(list, QAccessible::Tree);
        choose(list, {"c:\\", "nwb"}, [&] { return list.rows().at(list.openRow()).name; });
    }
    void visit(TabStrip& tabs) override {
        take(tabs, QAccessible::PageTabList);
        spoken = QAccessible::queryAccessibleInterface(window.findChild<QTabBar*>());
        ASSERT_TRUE(spoken);
        const auto chosen = [&] { return tabs.Tabs.at(tabs.SelectedItem - 1).caption; };
        choose(tabs, {tabs.Tabs[0].caption, tabs.Tabs[1].caption, tabs.Tabs[1].caption, chosen()},
               chosen);
        for (int tab = 0; tab < std::ssize(tabs.Tabs); ++tab) {
            auto* page = spoken->child(tab);
            ASSERT_TRUE(page);
            EXPECT_EQ(page->role(), QAccessible::PageTab);
            EXPECT_EQ(page->text(QAccessible::Description), ::name(tabs.Tabs[tab].tooltip));
            EXPECT_EQ(spoken->childAt(page->rect().x() + 2, page->rect().y() + 2), page);
        }
    }
    void visit(MenuItem& item) override {
        auto* action = window.findChild<QAction*>(::name(item.fullName()));
        ASSERT_TRUE(action);
        EXPECT_EQ(action->isSeparator() ? "-" : action->text().toStdString(), item.Caption());
        EXPECT_EQ(action->isEnabled(), item.Enabled);
        action->trigger();
        EXPECT_EQ(heard, heardFrom(item));
    }

    QMainWindow& window;
    std::string& heard;
    std::vector<Control*> stops;  ///< the controls met that can take the focus

  private:
    void take(Control& control, QAccessible::Role kind) {
        role = kind;
        if (control.usable()) stops.push_back(&control);
    }
    static std::string heardFrom(const Control& control) {
        return control.usable() ? control.fullName() + " " : "";
    }
    static std::string textOf(const QAccessibleInterface& object) {
        return object.text(QAccessible::Name).toStdString();
    }
    static void press(QAccessibleInterface* object) {
        ASSERT_TRUE(object && object->actionInterface());
        for (const QString& action : object->actionInterface()->actionNames().mid(0, 1))
            object->actionInterface()->doAction(action);
        QCoreApplication::processEvents();
    }
    template <typename Kind>
    void tick(const Kind& control, bool follows) {
        press(spoken);
        EXPECT_EQ(control.Value != 0, follows);
        EXPECT_EQ(spoken->state().checked, follows);
    }
    /// Presses the entry with each text. It is then the chosen and the only selected one.
    void choose(const Control& control, const std::vector<std::string>& texts,
                const std::function<std::string()>& chosen) {
        for (const std::string& text : texts) {
            const std::string expected = control.usable() ? text : chosen();
            press(find([&](const auto& entry) { return textOf(entry) == text; }));
            EXPECT_EQ(chosen(), expected);
            // Without a reader on the bus, newer Qt does not bring the rows up to date.
            QObject* list = spoken->object();
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(spoken));
            spoken = QAccessible::queryAccessibleInterface(list);
            std::string selected;
            find([&](const auto& entry) {
                if (entry.state().selected) selected += textOf(entry);
                return false;
            });
            EXPECT_EQ(selected, expected);
        }
    }
    /// Returns the first entry of the list for which the function returns true, or null.
    QAccessibleInterface* find(const std::function<bool(const QAccessibleInterface&)>& is) const {
        const auto* list = role == QAccessible::ComboBox ? spoken->child(0) : spoken;
        for (int index = 0; index < list->childCount(); ++index)
            if (is(*list->child(index))) return list->child(index);
        return nullptr;
    }

    QAccessibleInterface* spoken = nullptr;
    QAccessible::Role role = QAccessible::NoRole;
    std::string name;
    std::string help;
};

TEST_F(Windows, AssistiveTechnologyMeetsEveryControl) {
    for (Form* shown : fakes::everyForm(application, program)) {
        open(*shown);
        const Control* first = qt::controlOf(*shown, window->focusWidget());
        fakes::onEachPage(*shown, [&] {
            Assistant assistant(*window, heard);
            for (Control* control : shown->allControls())
                assistant.meet(*control);
            std::erase_if(assistant.stops, [](const Control* control) {
                const auto* option = dynamic_cast<const OptionButton*>(control);
                return option && !option->isTabStop();
            });
            // Tab stops at each of them in their order, and then starts again.
            ASSERT_FALSE(assistant.stops.empty());
            EXPECT_EQ(first, assistant.stops.front());
            assistant.stops.front()->SetFocus();
            assistant.stops.push_back(assistant.stops.front());
            for (const Control* stop : assistant.stops) {
                QWidget* focused = window->focusWidget();
                ASSERT_TRUE(focused);
                EXPECT_EQ(qt::controlOf(*shown, focused), stop) << stop->fullName();
                EXPECT_TRUE(QAccessible::queryAccessibleInterface(focused)->state().focused);
                QTest::keyClick(focused, Qt::Key_Tab);
            }
        });
    }
}

}  // namespace
