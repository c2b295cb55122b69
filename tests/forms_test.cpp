#include <gtest/gtest.h>

#include "fakes.h"

using namespace forms;

namespace {

class Sample : public Form {
  public:
    Sample(Application& application, std::vector<std::string>& events)
        : Form(application, "Sample", {.keyPreview = true}), log(events) {}

    std::vector<std::string>& log;
    Frame frame{*this, {.name = "frame", .caption = "Options"}};
    CheckBox chk{frame, {.name = "chk", .caption = "&Tick", .event = [this] {
                             log.emplace_back("chk in");
                             if (chk.Value) txt.Text = "set";
                             log.emplace_back("chk out");
                         }}};
    ControlArray<OptionButton> opt{
        frame,
        "opt",
        {{.index = 1, .caption = "&One", .ticked = true}, {.index = 3, .caption = "&Three"}},
        [this](int i) { log.push_back("opt " + std::to_string(i)); }};
    Label label{*this, {.name = "label", .caption = "Name"}};
    TextBox txt{*this, {.name = "txt", .text = "start", .event = [this] {
                            log.push_back("txt " + txt.Text());
                        }}};
    ListBox list{*this, {.name = "list", .event = [this] { log.emplace_back("list"); }}};
    TabStrip tabs{*this, {.name = "tabs"}, {{"A", ""}, {"BCD", ""}}};
    Button ok{*this, {.name = "ok", .caption = "&OK", .isDefault = true, .event = [this] {
                          log.emplace_back("ok");
                          throw RuntimeError("no such drive");
                      }}};
    Button bug{*this, {.name = "bug", .event = [this] { list.RemoveItem(0); }}};
    Button later{frame, {.name = "later", .caption = "&Later", .isDefault = true}};
};

struct Forms : testing::Test {
    using Log = std::vector<std::string>;
    Log log;
    Log told;
    fakes::FakeToolkit toolkit;
    Application application{toolkit, [this](const std::string& text) { told.push_back(text); }};
    Sample& form = application.load<Sample>(log);

    Log events() { return std::exchange(log, {}); }
};

TEST_F(Forms, AnAssignmentRunsTheHandlerInsideAndOnlyOnChange) {
    form.chk.Value = 1;
    EXPECT_EQ(events(), (Log{"chk in", "txt set", "chk out"}));
    form.chk.Value = 1;
    form.txt.Text = "set";
    form.frame.Enabled = false;
    EXPECT_EQ(events(), Log{});
}

TEST_F(Forms, AListKeepsItsSelectionInStep) {
    for (const char* entry : {"a", "b", "c"})
        form.list.AddItem(entry);
    form.list.pick(1);
    form.list.AddItem("front", 0);
    EXPECT_EQ(form.list.Text(), "b");
    form.list.RemoveItem(0);
    EXPECT_EQ(form.list.ListIndex, 1);
    form.list.RemoveItem(1);
    EXPECT_EQ(form.list.ListIndex, -1);
    EXPECT_EQ(form.list.Text(), "");
    form.list.pick(7);
    EXPECT_EQ(events(), (Log{"list"}));
}

TEST_F(Forms, AUserReachesOnlyWhatCanBeUsed) {
    form.frame.Enabled = false;
    form.chk.click();
    form.opt(3).click();
    EXPECT_EQ(events(), Log{});
    EXPECT_TRUE(form.pressDefault()) << "the first default button that can be used";
    EXPECT_EQ(events(), (Log{"ok"}));
    EXPECT_FALSE(form.pressCancel());
    form.frame.Enabled = true;
    EXPECT_EQ(form.mnemonicTarget('T', nullptr), &form.chk);
    EXPECT_EQ(form.mnemonicTarget('O', &form.opt(1)), &form.ok) << "the next one round";
    EXPECT_EQ(form.mnemonicTarget('O', &form.ok), &form.opt(1));
    EXPECT_EQ(form.mnemonicTarget('X', nullptr), nullptr);
}

TEST_F(Forms, AFailureIsToldAndTheProgramLivesOnButABugEndsIt) {
    form.ok.click();
    EXPECT_EQ(told, Log{"no such drive"});
    form.txt.type("mo\tre\x7f\nlost");
    EXPECT_EQ(events(), (Log{"ok", "txt more"}));
    EXPECT_THROW(form.bug.click(), std::out_of_range);
    EXPECT_EQ(told.size(), 1u);
    form.close();
    EXPECT_TRUE(toolkit.ended) << "no handler counts as running";
}

}  // namespace
