#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <set>

#include "console/frm_console.h"
#include "dialogs/frm_include_add.h"
#include "dialogs/frm_include_list.h"
#include "dialogs/locations_dialog.h"
#include "docs/frm_about.h"
#include "docs/frm_splash.h"
#include "platform/linux/linux_runtime.h"
#include "platform/qt/form_window.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_toolkit.h"
#include "platform/qt/units.h"
#include "platform/qt/widget_peer.h"

namespace {

using namespace forms;

QString name(const std::string& text) {
    return QString::fromStdString(text);
}

QMainWindow& windowOf(Form& form) {
    return dynamic_cast<qt::FormWindow&>(*form.window()).widget();
}

/// One control of each kind that a user works, on two panels. Notes what its handlers hear.
struct Sample : Form {
    Sample(Application& application, std::string& heard)
        : Form(application, "Sample",
               {.caption = "Sample",
                .place = {0, 0, 6500, 5000},
                .sizable = true,
                .centred = false,
                .keyPreview = true}),
          heard(heard) {}
    void Form_KeyDown(int keyCode, int shift) override {
        if (keyCode == 9 && shift == ctrlMask) tabs.SelectedItem = 3 - tabs.SelectedItem;
    }
    void Form_KeyPress(int keyAscii) override { heard += "<" + std::to_string(keyAscii) + ">"; }
    void Form_Activate() override { heard += "[active]"; }
    void tabs_Click() {
        heard += "tab" + std::to_string(tabs.SelectedItem) + " ";
        for (int i = 0; i < 2; ++i) {
            panels(i).Left = i + 1 == tabs.SelectedItem ? 200 : -20000;
            panels(i).Enabled = i + 1 == tabs.SelectedItem;
        }
    }
    /// A definition whose handler notes the control's name.
    Definition define(const std::string& name, const std::string& caption, Place place,
                      bool isDefault = false, bool isCancel = false) {
        return {.name = name,
                .caption = caption,
                .place = place,
                .isDefault = isDefault,
                .isCancel = isCancel,
                .event = [this, name] {
                    heard += name + " ";
                    onEvent();
                }};
    }

    std::string& heard;
    std::function<void()> onEvent = [] {};
    MenuItem mnuFile{*this, define("mnuFile", "&File", {})};
    MenuItem mnuExit{mnuFile, define("mnuExit", "E&xit", {})};
    TabStrip tabs{
        *this,
        {.name = "tabs", .place = {100, 100, 6000, 4000}, .event = [this] { tabs_Click(); }},
        {{" One ", "first"}, {" Two ", "second"}}};
    ControlArray<PictureBox> panels{*this,
                                    "panels",
                                    {{.index = 0, .place = {200, 600, 5700, 3300}},
                                     {.index = 1, .place = {200, 600, 5700, 3300}}}};
    Label lblName{panels(0), define("lblName", "File", {0, 0, 1500, 300})};
    TextBox txtName{
        panels(0),
        {.name = "txtName", .place = {0, 300, 3000, 345}, .holdsPath = true, .event = [this] {
             heard += "txtName ";
             onEvent();
         }}};
    Button btnRun{panels(0), define("btnRun", "&Run", {3100, 300, 900, 375})};
    CheckBox chkDebug{panels(0), define("chkDebug", "&Debug", {0, 700, 1500, 300})};
    Frame fraKind{panels(0), define("fraKind", "Kind", {0, 1100, 3000, 1500})};
    Label lblInside{fraKind, define("lblInside", "Inside", {1500, 300, 1200, 300})};
    ControlArray<OptionButton> optKind{
        fraKind,
        "optKind",
        {{.index = 0, .caption = "Plai&n", .place = {120, 360, 1200, 300}, .ticked = true},
         {.index = 2, .caption = "&Packed", .place = {120, 720, 1200, 300}}},
        [this](int i) { heard += "kind" + std::to_string(i) + " "; }};
    TextBox txtLines{panels(1),
                     {.name = "txtLines",
                      .text = "a\r\nb\r\n",
                      .place = {0, 300, 3000, 900},
                      .readOnly = true,
                      .multiLine = true}};
    ListBox lstFolders{panels(1), define("lstFolders", "", {0, 1300, 3000, 900})};
    Button btnOk{panels(1), define("btnOk", "&OK", {3100, 300, 900, 375}, true)};
    Button btnCancel{*this, define("btnCancel", "Cancel", {4500, 4200, 900, 330}, false, true)};
};

struct Windows : testing::Test {
    std::string told;
    std::string heard;
    qt::QtToolkit toolkit{[this](const std::string& path) { return host + path.substr(2); },
                          [](const std::string& path) { return "c:" + path; }};
    Application application{toolkit, [this](const std::string& text) { told += text; }};
    std::string host;
    Sample* form = nullptr;
    QMainWindow* window = nullptr;

    void SetUp() override {
        form = &application.load<Sample>(heard);
        form->tabs.SelectedItem = 1;
        form->Show();
        window = &windowOf(*form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        EXPECT_EQ(std::exchange(heard, ""), "tab1 [active]");
    }
    /// Sets the user's font; windows made from now on follow it.
    static void setUserFont(int points) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
        qt::takeScale();
    }
    void TearDown() override {
        setUserFont(9);
        // The message loop ends with the last form.
        QTimer::singleShot(
            0, [this] { application.Count() > 0 ? form->close() : QCoreApplication::exit(); });
        QApplication::exec();
    }
    template <typename Kind = QWidget>
    Kind& widget(const Control& control) {
        return *window->findChild<Kind*>(name(control.fullName()));
    }
    /// Strikes a key where the focus is; gives the handlers heard and the control then in focus.
    std::string strike(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused ? focused : window, key, modifiers);
        QCoreApplication::processEvents();
        return std::exchange(heard, "") + "@" + window->focusWidget()->objectName().toStdString();
    }
};

TEST_F(Windows, KeysReachTheFormThenTheModel) {
    const Control& text = form->txtName;
    const Control& run = form->btnRun;
    const struct {
        const Control& focus;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::string expected;
    } rows[] = {
        {text, Qt::Key_A, {}, "<97>txtName @txtName"},
        {text, Qt::Key_Backspace, {}, "<8>txtName @txtName"},
        {text, Qt::Key_F5, {}, "@txtName"},
        {text, Qt::Key_Tab, {}, "@btnRun"},
        {text, Qt::Key_Return, {}, "<13>@txtName"},  // the default button is on the other panel
        {text, Qt::Key_Escape, {}, "<27>btnCancel @txtName"},
        {run, Qt::Key_Enter, {}, "<13>btnRun @btnRun"},
        {run, Qt::Key_Space, {}, "<32>btnRun @btnRun"},
        {text, Qt::Key_R, Qt::AltModifier, "btnRun @btnRun"},
        {text, Qt::Key_D, Qt::AltModifier, "chkDebug @chkDebug"},
        {text, Qt::Key_P, Qt::AltModifier, "kind2 @optKind(2)"},
        {form->optKind(2), Qt::Key_Up, {}, "kind0 @optKind(0)"},
        {text, Qt::Key_O, Qt::AltModifier, "@txtName"},  // on the other panel
        {text, Qt::Key_Tab, Qt::ControlModifier, "tab2 @txtLines"},
        {form->txtLines, Qt::Key_Return, {}, "<13>btnOk @txtLines"},
        {form->txtLines, Qt::Key_O, Qt::AltModifier, "btnOk @btnOk"},
        {form->txtLines, Qt::Key_Tab, Qt::ControlModifier, "tab1 @txtName"},
    };
    for (const auto& row : rows) {
        widget(row.focus).setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(strike(row.key, row.modifiers), row.expected)
            << row.focus.fullName() << " " << QKeySequence(row.key).toString().toStdString();
    }
}

TEST_F(Windows, WidgetsShowWhatTheModelHolds) {
    auto& first = widget<QRadioButton>(form->optKind(0));
    auto& second = widget<QRadioButton>(form->optKind(2));
    QTest::mouseClick(&second, Qt::LeftButton, {}, {8, second.height() / 2});
    QTest::keyClick(&second, Qt::Key_Space);  // counts also where it is selected already
    EXPECT_EQ(std::exchange(heard, ""), "kind2 <32>kind2 ");
    EXPECT_TRUE(!form->optKind(0).Value && !first.isChecked() && second.isChecked());
    form->optKind(2).Value = false;
    EXPECT_FALSE(first.isChecked() || second.isChecked());

    form->onEvent = [] { throw RuntimeError("Disk full"); };
    QTest::mouseClick(&widget(form->btnRun), Qt::LeftButton);
    EXPECT_EQ(told, "Disk full");
    EXPECT_EQ(std::exchange(heard, ""), "btnRun ");
    form->onEvent = [] {};

    auto& line = widget<QLineEdit>(form->txtName);
    QTest::keyClicks(&line, "cave");
    line.setCursorPosition(2);
    QTest::keyClick(&line, Qt::Key_X);
    EXPECT_EQ(form->txtName.Text(), "caxve");
    EXPECT_EQ(line.cursorPosition(), 3);
    form->txtName.Text = "new";
    EXPECT_EQ(line.text(), "new");
    heard.clear();

    auto& frame = widget(form->fraKind);
    QTest::mouseClick(&widget(form->lblInside), Qt::LeftButton);
    EXPECT_EQ(heard, "");
    QTest::mouseClick(&frame, Qt::LeftButton, {}, {frame.width() - 5, frame.height() - 5});
    EXPECT_EQ(std::exchange(heard, ""), "fraKind ");

    QTabBar* bar = widget<QTabWidget>(form->tabs).tabBar();
    for (const std::string expected : {"tab2 ", "tab2 "}) {  // also where it is selected already
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
        EXPECT_EQ(std::exchange(heard, ""), expected);
    }
    EXPECT_FALSE(widget(form->panels(0)).isVisible());
    for (const std::string folder : {"c:\\a", "c:\\b"})
        form->lstFolders.AddItem(folder);
    form->lstFolders.SetFocus();
    EXPECT_EQ(form->lstFolders.ListIndex, -1);
    EXPECT_EQ(strike(Qt::Key_Down), "lstFolders @lstFolders");
    EXPECT_EQ(form->lstFolders.ListIndex, 0);
    auto& list = widget<QListWidget>(form->lstFolders);
    list.clearSelection();  // a user may do so; the model always keeps one
    EXPECT_EQ(list.selectedItems().size(), 1);
    for (QWidget* next : {&widget(form->btnOk), &widget(form->btnCancel)})
        next->setFocus();
    EXPECT_TRUE(widget<QPushButton>(form->btnOk).isDefault()) << "after the focus has left it";
}

TEST_F(Windows, AFormMayEndInsideItsOwnEvents) {
    for (const bool typing : {true, false}) {
        auto& ending = typing ? *form : application.load<Sample>(heard);
        ending.Show();
        ending.onEvent = [&] { ending.Unload(); };
        const QPointer<QWidget> gone = &windowOf(ending);
        const auto control = typing ? ending.txtName.fullName() : ending.btnRun.fullName();
        QTest::keyClick(gone->findChild<QWidget*>(name(control)), Qt::Key_A);
        if (!typing) gone->findChild<QPushButton*>(name(control))->click();
        EXPECT_EQ(application.Count(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(gone);
    }
}

TEST_F(Windows, APlaceInTwipsDoesNotDrift) {
    const auto place = [this](const Form* other = nullptr) {
        const Form& at = other ? *other : *form;
        return std::vector<int>{at.Left, at.Top, at.Width, at.Height};
    };
    for (const int points : {18, 8}) {
        setUserFont(points);
        auto& other = application.load<Sample>(heard);
        other.Show();
        other.Left = 1000;
        other.Top = 1000;
        QCoreApplication::processEvents();
        EXPECT_EQ(place(&other), (std::vector<int>{1000, 1000, 6500, 5000}));
        EXPECT_EQ(windowOf(other).x(), 67);
        EXPECT_EQ(windowOf(other).width() > 600, points == 18);
        other.Unload();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(place(), (std::vector<int>{0, 0, 6500, 5000}));
    EXPECT_EQ(QRect(window->pos(), window->size()), QRect(0, 0, 433, 333));
    window->resize(500, 400);
    window->move(40, 30);
    EXPECT_EQ(place(), (std::vector<int>{600, 450, 7500, 6000}));
    form->Left = -20000;
    EXPECT_EQ(window->x(), -1333);
    EXPECT_EQ(place(), (std::vector<int>{-20000, 450, 7500, 6000}));
    window->showMinimized();
    EXPECT_EQ(form->WindowState, WindowState::Minimised);
}

TEST_F(Windows, AFileThatIsDroppedOrPastedBecomesAWindowsPath) {
    auto& line = widget<QLineEdit>(form->txtName);
    const QTemporaryDir folder;
    const std::string file = folder.filePath("my cave.kel").toStdString();
    QFile(name(file)).open(QIODevice::WriteOnly);
    const std::string url = QUrl::fromLocalFile(name(file)).toString().toStdString();
    const std::pair<std::string, std::string> pasted[] = {
        {file, "c:" + file},    {url, "c:" + file},       {url + "\n" + url, "c:" + file},
        {url + "x", url + "x"}, {"/no/such", "/no/such"}, {"c:\\a\tb\r\nc", "c:\\ab"}};
    for (const auto& [text, expected] : pasted) {
        line.clear();
        QApplication::clipboard()->setText(name(text));
        QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(form->txtName.Text(), expected);
        EXPECT_EQ(line.text().toStdString(), expected);
    }
    line.clear();
    QTest::keyClicks(&line, name(file));
    EXPECT_EQ(form->txtName.Text(), file) << "typed by hand";
    for (QWidget* place : QWidgetList{window, &line, &widget(form->tabs)}) {
        for (const int files : {2, 1}) {
            line.setText("old");
            QMimeData data;
            data.setUrls(QList<QUrl>(files, QUrl::fromLocalFile(name(file))));
            const QPoint at = place->rect().center();
            const auto actions = Qt::MoveAction | Qt::CopyAction;
            QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, {});
            QDropEvent drop(at, actions, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(place, &enter);
            QCoreApplication::sendEvent(place, &drop);
            EXPECT_EQ(form->txtName.Text(), files == 1 ? "c:" + file : "old");
            EXPECT_EQ(enter.isAccepted(), files == 1);
            EXPECT_NE(drop.dropAction(), Qt::MoveAction);
        }
    }
}

TEST_F(Windows, AFileMayBeChosenThatDoesNotExist) {
    const QTemporaryDir folder;
    host = folder.path().toStdString();
    ASSERT_TRUE(QDir(folder.path()).mkdir("games"));
    const struct {
        std::string offered, shown;
    } rows[] = {{"c:/games/new.kel", "new.kel"}, {"a|b?", ""}, {std::string(261, 'x'), ""}};
    for (const auto& row : rows) {
        QTimer::singleShot(0, [&] {
            auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* edit = dialog->findChild<QLineEdit*>();
            EXPECT_EQ(edit->text().toStdString(), row.shown);
            EXPECT_EQ(dialog->windowTitle(), "Select");
            EXPECT_EQ(dialog->nameFilters(),
                      (QStringList{"Source (*.kel) (*.[kK][eE][lL])", "All Files (*.*) (*)"}));
            EXPECT_EQ(dialog->directory(), QDir(folder.path() + "/games"));  // stays the last one
            edit->setText("other.kel");
            QTest::keyClick(edit, Qt::Key_Return);
        });
        EXPECT_EQ(toolkit.chooseFile(
                      *form, {"Select", "Source (*.kel)|*.kel|All Files (*.*)|*.*", row.offered}),
                  "c:" + host + "/games/other.kel");
    }
}

TEST_F(Windows, AMessageBoxAnswers) {
    using core::Runtime;
    const struct {
        int flags;
        Qt::Key key;
        Runtime::Answer answer;
    } rows[] = {{Runtime::okOnly, Qt::Key_Escape, Runtime::Answer::Ok},
                {Runtime::exclamation, Qt::Key_Return, Runtime::Answer::Ok},
                {Runtime::yesNo, Qt::Key_Return, Runtime::Answer::Yes},
                {Runtime::yesNo, Qt::Key_Escape, Runtime::Answer::No}};
    for (const auto& row : rows) {
        QTimer::singleShot(0, [&] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->parentWidget(), window);
            EXPECT_LT(box->width(), 800);
            EXPECT_EQ(box->icon() == QMessageBox::Warning, row.flags == Runtime::exclamation);
            QTest::keyClick(box, row.key);
        });
        std::string path = "<b>c:";
        for (int i = 0; i < 30; ++i)
            path += "\\folder";
        EXPECT_EQ(qt::messageBox(path + " not found", row.flags, "Title"), row.answer);
    }
}

/// True if nothing of the widget's caption is cut off or left out.
bool captionFits(const QWidget& widget, const std::string& caption) {
    if (caption.empty()) return true;
    const QString text = name(withoutMnemonic(caption));
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return name(withoutMnemonic(label->text().toStdString())) == text &&
               (!label->wordWrap() || label->heightForWidth(label->width()) <= label->height());
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const int edges = !button ? 0 : qobject_cast<const QPushButton*>(button) ? 8 : 16;
    return widget.fontMetrics().horizontalAdvance(text) + edges <= widget.width() &&
           widget.fontMetrics().height() <= widget.height();
}

/// Every caption can be read, and every control can be found and is named to a screen reader.
void expectReadable(Form& form) {
    std::set<std::string> names;
    for (Control* control : form.allControls()) {
        EXPECT_TRUE(names.insert(control->fullName()).second) << control->fullName();
        auto* widget =
            windowOf(form).centralWidget()->findChild<QWidget*>(name(control->fullName()));
        if (!widget) continue;  // menu items and the like
        EXPECT_EQ(widget->accessibleName().isEmpty(), bool(dynamic_cast<Line*>(control)))
            << form.name << " " << control->fullName();
        EXPECT_EQ(widget->toolTip(), qt::wrappingToolTip(control->tooltip));
        const Control* panel = control;  // of the console; else the control itself
        while (panel->parent()->parent())
            panel = panel->parent();
        const auto& place = panel->name == "picOptions" ? panel->fullName() : form.name;
        EXPECT_TRUE(widget->focusPolicy() == Qt::NoFocus ||
                    names.insert(place + ": " + control->accessibleName()).second)
            << control->fullName();
        EXPECT_TRUE(captionFits(*widget, control->Caption))
            << form.name << " " << control->fullName();
    }
}

/// Entries of the menu without a path are greyed, and the status bar shows date and time.
void expectMenuAndStatusBar(Form& console) {
    EXPECT_FALSE(windowOf(console).findChild<QAction*>("mnuHelpManual")->isEnabled());
    EXPECT_TRUE(windowOf(console).findChild<QAction*>("mnuHelpAbout")->isEnabled());
    const auto panels = windowOf(console).statusBar()->findChildren<QLabel*>();
    const auto now = QDateTime::currentDateTime();
    EXPECT_TRUE(panels[0]->text().isEmpty());
    EXPECT_EQ(panels[1]->text(), QLocale::system().toString(now.date(), QLocale::ShortFormat));
    EXPECT_TRUE(panels[2]->text().contains(':'));
}

/// A click on the splash's title leaves it; one beside it falls on the frame and dismisses it.
void expectSplashGoes(Form& splash, std::string& heard) {
    heard.clear();
    auto* frame = windowOf(splash).findChild<QWidget*>("Frame1");
    const auto title = frame->findChild<QWidget*>("lblProductName")->geometry();
    QTest::mouseClick(frame, Qt::LeftButton, {}, title.center());
    EXPECT_EQ(heard, "");
    QTest::mouseClick(frame, Qt::LeftButton, {}, title.bottomRight() + QPoint(3, -3));
    EXPECT_EQ(heard, "go");
}

TEST_F(Windows, EveryFormOfTheProgramIsReadable) {
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    platform::LinuxRuntime runtime(qt::messageBox);
    core::Program program{runtime, application, {}};
    EXPECT_FALSE(captionFits(widget(form->btnRun), "A caption that does not fit"));
    for (const int points : {8, 11, 18, 24}) {
        SCOPED_TRACE(points);
        setUserFont(points);
        auto& console = application.load<console::frmConsole>(program);
        auto& list = console.compile.lstInclude;
        const std::vector<Form*> all = {&console,
                                        &application.load<docs::frmSplash>([&] { heard = "go"; }),
                                        &application.load<docs::frmAbout>(program),
                                        &application.load<dialogs::frmSettings>(program),
                                        &application.load<dialogs::frmSettings2>(program),
                                        &application.load<dialogs::frmIncludeList>(program, list),
                                        &application.load<dialogs::frmIncludeAdd>(program, list)};
        for (Form* each : all)
            each->Show();
        EXPECT_FALSE(windowOf(console).findChild<QWidget*>("btnPlay"));  // made when first seen
        for (int tab = 1; tab <= 4; ++tab)
            console.tbsOptions.SelectedItem = tab;
        for (Form* each : all)
            expectReadable(*each);
        expectMenuAndStatusBar(console);
        expectSplashGoes(*all[1], heard);
        while (application.Count() > 1)
            application.Forms(application.Count() - 1).Unload();
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
