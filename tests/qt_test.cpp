#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "console/frm_console.h"
#include "dialogs/frm_include_add.h"
#include "dialogs/frm_include_list.h"
#include "dialogs/locations_dialog.h"
#include "docs/frm_about.h"
#include "docs/frm_splash.h"
#include "platform/linux/linux_runtime.h"
#include "platform/qt/form_window.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_application.h"
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
    void tabs_Click() {
        heard += "tab" + std::to_string(tabs.SelectedItem) + " ";
        for (int i = 0; i < 2; ++i) {
            panels(i).Left = i + 1 == tabs.SelectedItem ? 200 : -20000;
            panels(i).Enabled = i + 1 == tabs.SelectedItem;
        }
    }
    /// The definition with a name and so on, whose handler notes the name.
    Definition define(const std::string& name, const std::string& caption, Place place,
                      Definition definition = {}) {
        definition.name = name;
        definition.caption = caption;
        definition.place = place;
        definition.event = [this, name] {
            heard += name + " ";
            onEvent();
        };
        return definition;
    }

    std::string& heard;
    std::function<void()> onEvent = [] {};
    TabStrip tabs{
        *this,
        {.name = "tabs", .place = {100, 100, 6000, 4000}, .event = [this] { tabs_Click(); }},
        {{" One ", "first"}, {" Two ", "second"}}};
    ControlArray<PictureBox> panels{*this,
                                    "panels",
                                    {{.index = 0, .place = {200, 600, 5700, 3300}},
                                     {.index = 1, .place = {200, 600, 5700, 3300}}}};
    TextBox txtName{panels(0), define("txtName", "", {0, 300, 3000, 345}, {.holdsPath = true})};
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
    TextBox txtLines{panels(1), define("txtLines", "", {0, 300, 3000, 900},
                                       {.readOnly = true, .multiLine = true})};
    ListBox lstFolders{panels(1), define("lstFolders", "", {0, 1300, 3000, 900})};
    Button btnOk{panels(1), define("btnOk", "&OK", {3100, 300, 900, 375}, {.isDefault = true})};
    Button btnCancel{*this,
                     define("btnCancel", "Cancel", {4500, 4200, 900, 330}, {.isCancel = true})};
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
        EXPECT_EQ(std::exchange(heard, ""), "tab1 ");
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
    };
    for (const auto& row : rows) {
        widget(row.focus).setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(strike(row.key, row.modifiers), row.expected)
            << row.focus.fullName() << " " << QKeySequence(row.key).toString().toStdString();
    }
}

TEST_F(Windows, WidgetsShowWhatTheModelHolds) {
    auto& second = widget<QRadioButton>(form->optKind(2));
    QTest::mouseClick(&second, Qt::LeftButton, {}, {8, second.height() / 2});
    QTest::keyClick(&second, Qt::Key_Space);  // counts also where it is selected already
    EXPECT_EQ(std::exchange(heard, ""), "kind2 <32>kind2 ");
    form->optKind(2).Value = false;
    EXPECT_FALSE(second.isChecked());

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
    form->lstFolders.AddItem("c:\\a");
    form->lstFolders.SetFocus();
    EXPECT_EQ(form->lstFolders.ListIndex, -1);
    EXPECT_EQ(strike(Qt::Key_Down), "lstFolders @lstFolders");
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
    const auto expectPlace = [](const Form& at, const std::vector<int>& expected) {
        EXPECT_EQ((std::vector<int>{at.Left, at.Top, at.Width, at.Height}), expected);
    };
    for (const int points : {18, 8}) {
        setUserFont(points);
        auto& other = application.load<Sample>(heard);
        other.Show();
        other.Left = 1000;
        QCoreApplication::processEvents();
        expectPlace(other, {1000, 0, 6500, 5000});
        EXPECT_EQ(windowOf(other).x(), 67);
        EXPECT_EQ(windowOf(other).width() > 600, points == 18);
        other.Unload();
    }
    QCoreApplication::processEvents();
    expectPlace(*form, {0, 0, 6500, 5000});
    EXPECT_EQ(window->size(), QSize(433, 333));
    window->resize(500, 400);
    window->move(40, 30);
    form->Left = -20000;
    EXPECT_EQ(window->x(), -1333);
    expectPlace(*form, {-20000, 450, 7500, 6000});
    window->showMinimized();
    EXPECT_EQ(form->WindowState, WindowState::Minimised);
}

TEST_F(Windows, AFileThatIsDroppedOrPastedBecomesAWindowsPath) {
    auto& line = widget<QLineEdit>(form->txtName);
    const QTemporaryDir folder;
    const QUrl fileUrl = QUrl::fromLocalFile(folder.filePath("my cave.kel"));
    const std::string file = fileUrl.toLocalFile().toStdString();
    const std::string url = fileUrl.toString().toStdString();
    QFile(name(file)).open(QIODevice::WriteOnly);
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
            data.setUrls(QList<QUrl>(files, fileUrl));
            const auto actions = Qt::MoveAction | Qt::CopyAction;
            QDragEnterEvent enter({9, 9}, actions, &data, Qt::LeftButton, {});
            QDropEvent drop({9, 9}, actions, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(place, &enter);
            QCoreApplication::sendEvent(place, &drop);
            EXPECT_EQ(form->txtName.Text(), files == 1 ? "c:" + file : "old");
            EXPECT_NE(drop.dropAction(), Qt::MoveAction);
        }
    }
}

TEST_F(Windows, AFileMayBeChosenThatDoesNotExist) {
    const QTemporaryDir folder;
    host = folder.path().toStdString();
    ASSERT_TRUE(QDir(folder.path()).mkdir("games"));
    for (const auto& [offered, shown] : std::map<std::string, QString>{
             {"c:/games/new.kel", "new.kel"}, {"c|b?", ""}, {std::string(261, 'x'), ""}}) {
        QTimer::singleShot(0, [&] {
            auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* edit = dialog->findChild<QLineEdit*>();
            EXPECT_EQ(edit->text(), shown);
            EXPECT_EQ(dialog->windowTitle(), "Select");
            EXPECT_EQ(dialog->nameFilters(),
                      (QStringList{"Source (*.kel) (*.[kK][eE][lL])", "All Files (*.*) (*)"}));
            EXPECT_EQ(dialog->directory(), QDir(folder.path() + "/games"));  // stays the last one
            edit->setText(shown.isEmpty() ? "c:/games/other.kel" : "other.kel");
            QTest::keyClick(edit, Qt::Key_Return);
        });
        EXPECT_EQ(toolkit.chooseFile(
                      *form, {"Select", "Source (*.kel)|*.kel|All Files (*.*)|*.*", offered}),
                  "c:" + host + "/games/other.kel");
    }
}

TEST_F(Windows, AMessageBoxAnswers) {
    using core::Runtime;
    const std::tuple<int, Qt::Key, Runtime::Answer> rows[] = {
        {Runtime::okOnly, Qt::Key_Escape, Runtime::Answer::Ok},
        {Runtime::exclamation, Qt::Key_Return, Runtime::Answer::Ok},
        {Runtime::yesNo, Qt::Key_Return, Runtime::Answer::Yes},
        {Runtime::yesNo, Qt::Key_Escape, Runtime::Answer::No}};
    const std::string path = "<b>c:" + QString("\\folder").repeated(30).toStdString();
    for (const auto& [flags, key, answer] : rows) {
        QTimer::singleShot(0, [&, key = key, flags = flags] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->parentWidget(), window);
            EXPECT_LT(box->width(), 800);
            EXPECT_EQ(box->icon() == QMessageBox::Warning, flags == Runtime::exclamation);
            QTest::keyClick(box, key);
        });
        EXPECT_EQ(qt::messageBox(path + " not found", flags, "Title"), answer);
    }
}

/// True if nothing of the widget's caption is cut off or left out, and a mark before it is in
/// proportion.
bool captionFits(const QWidget& widget, const std::string& caption) {
    if (caption.empty()) return true;
    const QString text = name(withoutMnemonic(caption));
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return name(withoutMnemonic(label->text().toStdString())) == text &&
               (!label->wordWrap() || label->heightForWidth(label->width()) <= label->height());
    const QFontMetrics letters = widget.fontMetrics();
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const bool marked = button && button->isCheckable();
    const int mark = widget.style()->pixelMetric(QStyle::PM_IndicatorHeight);
    const int edges = marked ? mark + 3 : button ? 8 : 0;
    return letters.horizontalAdvance(text) + edges <= widget.width() &&
           letters.height() <= widget.height() && (!marked || 3 * mark > 2 * letters.height());
}

TEST_F(Windows, EveryFormOfTheProgramIsReadable) {
    const QTemporaryDir home;
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qputenv(variable, home.path().toUtf8());
    platform::LinuxRuntime runtime(qt::messageBox);
    core::Program program{runtime, application, {}};
    EXPECT_FALSE(captionFits(widget(form->btnRun), "A caption that does not fit"));
    for (const int points : {8, 11, 18, 24}) {
        SCOPED_TRACE(points);
        setUserFont(points);
        auto& console = application.load<console::frmConsole>(program);
        auto& list = console.compile.lstInclude;
        application.load<docs::frmSplash>([] {});
        application.load<docs::frmAbout>(program);
        application.load<dialogs::frmSettings>(program);
        application.load<dialogs::frmSettings2>(program);
        application.load<dialogs::frmIncludeList>(program, list);
        application.load<dialogs::frmIncludeAdd>(program, list);
        for (int i = 1; i < application.Count(); ++i)
            application.Forms(i).Show();
        const QMainWindow& shown = windowOf(console);
        EXPECT_FALSE(shown.findChild<QWidget*>("btnPlay"));  // made when first seen
        for (int tab = 1; tab <= 4; ++tab)
            console.tbsOptions.SelectedItem = tab;
        // Entries of the menu without a path are greyed; the status bar shows date and time.
        EXPECT_FALSE(shown.findChild<QAction*>("mnuHelpManual")->isEnabled());
        EXPECT_TRUE(shown.findChild<QAction*>("mnuHelpAbout")->isEnabled());
        const auto panels = shown.statusBar()->findChildren<QLabel*>();
        EXPECT_EQ(panels[1]->text(),
                  QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
        EXPECT_TRUE(panels[2]->text().contains(':'));
        while (application.Count() > 1) {
            Form& last = application.Forms(application.Count() - 1);
            for (const Control* control : last.allControls()) {
                auto* drawn =
                    windowOf(last).centralWidget()->findChild<QWidget*>(name(control->fullName()));
                if (!drawn) continue;
                EXPECT_TRUE(captionFits(*drawn, control->Caption))
                    << last.name << " " << control->fullName();
                EXPECT_LE(control->font.points ? 0 : drawn->font().pointSizeF(), points);
                EXPECT_EQ(drawn->toolTip(), qt::wrappingToolTip(control->tooltip));
            }
            last.Unload();
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const qt::QtApplication application(argv, [] {});
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
