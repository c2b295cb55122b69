#include "platform/linux/qt/application.h"
#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/message_box.h"
#include "qt_windows.h"

namespace {

using namespace forms;

TEST_F(Windows, KeysReachTheFormThenTheModel) {
    const auto& panel = form->compile;
    const Control& text = panel.txtFname;
    const std::tuple<const Control&, Qt::Key, Qt::KeyboardModifiers, const char*> rows[] = {
        {text, Qt::Key_A, {}, "txtFname @txtFname"},
        {text, Qt::Key_Return, {}, "btnCompile @txtFname"},
        {panel.btnBrowse, Qt::Key_Enter, {}, "btnBrowse @btnBrowse"},
        {text, Qt::Key_D, Qt::AltModifier, "chkDebug @chkDebug"},
        {text, Qt::Key_P, Qt::AltModifier, "optFormat(2) @optFormat(2)"},
        {panel.optFormat(2), Qt::Key_Up, {}, "optFormat(0) @optFormat(0)"},
        {text, Qt::Key_D, Qt::AltModifier | Qt::ShiftModifier, "chkDebug @chkDebug"},
        {text, Qt::Key_B, Qt::AltModifier, "btnBrowse @btnBrowse"},
        {text, Qt::Key_Z, Qt::AltModifier, "@txtFname"},
        {text, Qt::Key_Backspace, Qt::ControlModifier, "txtFname @txtFname"},
        {panel.optFormat(0), Qt::Key_Tab, {}, "@chkDebug"},
        {text, Qt::Key_Tab, Qt::AltModifier, "@txtFname"},
        {text, Qt::Key_Tab, Qt::ControlModifier, "@txtFnameP"},
        {form->play.txtFnameP, Qt::Key_Tab, Qt::ControlModifier, "chkAutoOpen @txtFnameS"},
        {form->spelling.txtFnameS, Qt::Key_Tab, Qt::ControlModifier, "@txtFnameE"},
        {form->edit.txtFnameE, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier,
         "@txtFnameS"},
    };
    form->edit.txtFnameE.Text = "cave.kel";
    Control& options = *panel.optFormat(0).parent();
    form->compile.chkHideC.setHandler([&options] { options.Visible = false; });
    widget(panel.optFormat(0)).setFocus();
    heard.clear();
    EXPECT_EQ(strike(Qt::Key_I, Qt::AltModifier), "@chkHideC");
    options.Visible = true;
    for (const auto& [focus, key, modifiers, expected] : rows) {
        widget(focus).setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(strike(key, modifiers), expected)
            << focus.fullName() << " " << QKeySequence(key).toString().toStdString();
        const auto* pressed = qobject_cast<QPushButton*>(window->focusWidget());
        EXPECT_EQ(widget<QPushButton>(panel.btnBrowse).isDefault(), pressed != nullptr);
        EXPECT_EQ(widget<QPushButton>(panel.btnCompile).isDefault(), !pressed);
    }
    EXPECT_FALSE(widget<QLineEdit>(form->edit.txtFnameE).hasSelectedText());
    for (const auto& [key, modifiers, item] :
         {std::tuple(Qt::Key_F10, Qt::NoModifier, "E&xit"),
          {Qt::Key_F, Qt::AltModifier, "E&xit"},
          {Qt::Key_G, Qt::AltModifier, "&Kelm Programs ..."}}) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu && menu->activeAction());
        EXPECT_EQ(menu->activeAction()->text(), item);
        menu->close();
    }
    Form& splash = application.load<docs::frmSplash>([] {});
    splash.Show();
    QMainWindow& shown = windowOf(splash);
    const QPoint middle = shown.pos();
    shown.move(0, 0);  // where a window manager may leave it for a moment
    QTimer::singleShot(30, [&] { shown.move(middle); });
    splash.Refresh();
    EXPECT_EQ(shown.pos(), middle);
    for (const auto key : {Qt::Key_F1, Qt::Key_Tab, Qt::Key_Delete})
        QTest::keyClick(shown.windowHandle(), key);
    QTest::keyClick(shown.windowHandle(), Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(application.Count(), 2) << "only a character dismisses the splash";
    QTest::keyClick(shown.windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(application.Count(), 1);
}

TEST_F(Windows, AHandlerRunsAtEachClickOnTheControlItself) {
    auto& second = widget<QRadioButton>(form->compile.optFormat(2));
    QTest::mouseClick(&second, Qt::LeftButton, {}, {8, second.height() / 2});
    QTest::keyClick(&second, Qt::Key_Space);
    EXPECT_EQ(std::exchange(heard, ""), "optFormat(2) optFormat(2) ");
    QTabBar* bar = widget<QTabWidget>(form->tbsOptions).tabBar();
    EXPECT_FALSE(bar->drawBase());
    for (const char* path : {"editor.exe", ""}) {  // the tab is selected already
        program.state.EditorPath = path;
        if (*path) QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
        QAccessibleInterface* tab = QAccessible::queryAccessibleInterface(bar)->child(1);
        ASSERT_TRUE(tab);
        QAccessibleInterface* tabs = tab->parent();
        for (const int index : {0, 3})
            EXPECT_EQ(tabs->indexOfChild(tabs->child(index)), index);
        EXPECT_FALSE(tabs->child(4));
        EXPECT_EQ(tabs->focusChild(), bar->hasFocus() ? tab : nullptr);
        if (!*path) tab->actionInterface()->doAction("Press");
        EXPECT_EQ(form->compile.optEditor(1).Enabled, *path != 0);
    }
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(2).center());
    heard.clear();
    const QPoint onTab = bar->tabRect(1).center();
    QHelpEvent rest(QEvent::ToolTip, onTab, bar->mapToGlobal(onTab));
    QCoreApplication::sendEvent(bar, &rest);
    EXPECT_EQ(QToolTip::text(), qt::wrappingToolTip(form->tbsOptions.Tabs[1].tooltip));
    form->play.labLogfile.Enabled = true;
    QTest::mouseClick(&widget(form->play.labLogfile), Qt::LeftButton);
    EXPECT_EQ(heard, "");
    auto& frame = widget(form->play.fraPlayback);
    QTest::mouseClick(&frame, Qt::LeftButton, {}, {5, frame.height() - 5});
    EXPECT_EQ(heard, "fraPlayback ");
}

TEST_F(Windows, ATextFollowsItsModelAndKeepsItsCursor) {
    auto& line = widget<QLineEdit>(form->compile.txtFname);
    line.setText("cave");
    line.setCursorPosition(2);
    QTest::keyClick(&line, Qt::Key_X);
    EXPECT_EQ(line.cursorPosition(), 3);
    form->compile.txtCmdline.Visible = true;
    form->compile.txtCmdline.Text = "one\r\ntwo\u00a0";
    auto& lines = widget<QPlainTextEdit>(form->compile.txtCmdline);
    lines.setPlainText("typed");
    EXPECT_EQ(lines.toPlainText(), "one\ntwo ") << "is read-only";
}

TEST_F(Windows, AListShowsItsModelAndAKeySelectsWhatItReaches) {
    ListBox& model = form->compile.lstInclude;
    auto& list = widget<QListWidget>(model);
    model.SetFocus();
    for (const char* folder : {"c:\\a", "c:\\b", "c:\\c"})
        model.AddItem(folder);
    const std::tuple<int, Qt::Key, int> rows[] = {{-1, Qt::Key_End, 2},   {0, Qt::Key_Down, 0},
                                                  {0, Qt::Key_Home, 0},   {1, Qt::Key_Home, 0},
                                                  {0, Qt::Key_PageUp, 0}, {0, Qt::Key_PageDown, 2}};
    for (const auto& [current, key, reached] : rows) {
        SCOPED_TRACE(std::to_string(current) + " " + QKeySequence(key).toString().toStdString());
        model.ListIndex = -1;
        list.setCurrentRow(current, QItemSelectionModel::NoUpdate);
        heard.clear();
        EXPECT_EQ(strike(key), "lstInclude @lstInclude");
        EXPECT_EQ(model.ListIndex, reached);
    }
    model.ListIndex = 0;
    strike(Qt::Key_Down);
    EXPECT_EQ(model.ListIndex, 1);
    model.ListIndex = 2;
    list.clearSelection();  // Qt allows it, the model does not
    EXPECT_EQ(list.selectedItems().size(), 1);
    model.setList(2, "c:\\d");
    EXPECT_EQ(list.item(2)->text(), "c:\\d");
    EXPECT_EQ(list.item(2)->toolTip(), qt::wrappingToolTip("c:\\d"));
    model.RemoveItem(0);
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(Windows, TheWindowTellsTheTime) {
    const auto panels = window->statusBar()->findChildren<QLabel*>();
    ASSERT_EQ(panels.size(), 3);
    panels[2]->clear();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return panels[2]->text() ==
               QLocale::system().toString(QTime::currentTime(), QLocale::ShortFormat);
    }));
    EXPECT_EQ(panels[0]->text(), "");
    EXPECT_GT(panels[0]->width(), panels[1]->width() + panels[2]->width());
    EXPECT_FALSE(window->windowIcon().isNull());
    EXPECT_EQ(QGuiApplication::desktopFileName(), "net.norvane.workbench");
    EXPECT_EQ(panels[1]->text(),
              QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

TEST_F(Windows, APlaceInTwipsDoesNotDrift) {
    const auto placeOf = [](const Form& at) {
        return std::vector<int>{at.Left, at.Top, at.Width, at.Height};
    };
    for (const auto& [points, width] : {std::pair(18, 684), {-24, 684}, {11, 477}, {6, 433}}) {
        Desktop desktop(runtime, points);
        auto& other = desktop.application.load<console::frmConsole>(desktop.program);
        other.Show();
        other.Left = 2000;
        windowOf(other).move(133, 30);
        QCoreApplication::processEvents();
        EXPECT_EQ(placeOf(other), (std::vector<int>{2000, 450, 6500, 6500}));
        EXPECT_EQ(windowOf(other).x(), 133);
        EXPECT_EQ(windowOf(other).width(), width);
        EXPECT_EQ(windowOf(other).font().pointSizeF() == 7, points == 6) << "the smallest";
        windowOf(other).resize(2 * width, 500);
        EXPECT_NEAR(other.Width, 13000, 20);
    }
    window->resize(500, 400);
    window->move(40, 30);
    form->Left = -20000;
    EXPECT_EQ(window->x(), -1333);
    EXPECT_EQ(placeOf(*form), (std::vector<int>{-20000, 450, 7500, 6000}));
    window->showMinimized();
    EXPECT_EQ(form->WindowState, WindowState::Minimised);
}

TEST_F(Windows, AFileThatIsDroppedOrPastedBecomesAWindowsPath) {
    auto& line = widget<QLineEdit>(form->compile.txtFname);
    const QTemporaryDir folder;
    const QUrl fileUrl = QUrl::fromLocalFile(folder.filePath("my cave.kel"));
    const std::string file = fileUrl.toLocalFile().toStdString();
    const std::string url = fileUrl.toString().toStdString();
    const std::string odd = folder.filePath("a\177b\tc.kel").toStdString();
    write(file);
    write(odd);
    const std::pair<std::string, std::string> pasted[] = {
        {"c:\\a\tb\r\nc", "c:\\ab"}, {"file://localhost" + file + "\n" + url, "c:" + file},
        {"/no/such", "/no/such"},    {"file://other" + file, "file://other" + file},
        {odd + "\n", "c:\\SHORT~1"}, {file, "c:" + file}};
    for (const auto& [text, expected] : pasted) {
        line.clear();
        QApplication::clipboard()->setText(name(text));
        QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(form->compile.txtFname.Text(), expected);
    }
    line.clear();
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, {3, 3}, line.mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&line, &rightClick);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->pos(), rightClick.globalPos());
    for (QAction* action : menu->actions())
        if (action->text().startsWith("&Paste")) action->trigger();
    menu->close();
    EXPECT_EQ(form->compile.txtFname.Text(), "c:" + file);
    for (QWidget* place : QWidgetList{window->centralWidget(), &line, &widget(form->tbsOptions)}) {
        const QByteArray path = fileUrl.toEncoded().mid(7);
        const std::pair<QList<QUrl>, std::string> drops[] = {
            {{fileUrl, fileUrl}, "old"},
            {{fileUrl}, "c:" + file},
            {{QUrl::fromEncoded("file://localhost" + path)}, "c:" + file},
            {{QUrl::fromEncoded("file://other" + path)}, "old"},
            {{QUrl::fromEncoded("file:///caf%E9.kel")}, "c:\\SHORT~1"}};
        for (const auto& [urls, expected] : drops) {
            line.setText("old");
            QMimeData data;
            data.setUrls(urls);
            data.setText("text");
            const auto actions = Qt::MoveAction | Qt::CopyAction;
            QDragEnterEvent enter({9, 9}, actions, &data, Qt::LeftButton, {});
            QDropEvent drop({9, 9}, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
            QCoreApplication::sendEvent(place, &enter);
            EXPECT_EQ(enter.isAccepted(), expected != "old");
            QCoreApplication::sendEvent(place, &drop);
            EXPECT_EQ(form->compile.txtFname.Text(), expected) << urls[0].toString().toStdString();
            EXPECT_EQ(drop.dropAction() == Qt::CopyAction, expected != "old");
        }
    }
}

TEST_F(Windows, AFileMayBeChosenThatDoesNotExist) {
    const QTemporaryDir folder;
    host = folder.path().toStdString();
    ASSERT_TRUE(QDir(folder.path()).mkdir("games"));
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir::current());
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        EXPECT_TRUE(dialog.testOption(QFileDialog::HideNameFilterDetails));
        dialog.reject();
    });
    EXPECT_EQ(toolkit.chooseFile(*form, {"Select", "All Files (*.*)|*.*", "cave.kel"}), "");
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(QString(250, 'n'));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    const std::string error = errorOf([&] {
        toolkit.chooseFile(*form, {"Select", "All|*.*", "c:/games/x"});
    });
    EXPECT_TRUE(error.starts_with("The file name is longer than 260 characters: c:")) << error;
    for (const auto& [offered, shown] :
         std::map<std::string, QString>{{"C:/games/né.kel", "né.kel"},
                                        {"c|b?", ""},
                                        {std::string(261, 'x'), ""},
                                        {"C:/games/" + std::string(251, 'x'), QString(251, 'x')}}) {
        whenOpen<QFileDialog>([&, &shown = shown](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>();
            EXPECT_EQ(dialog.sidebarUrls().last(), QUrl::fromLocalFile(folder.path() + "\\"));
            const auto* sidebar = dialog.findChild<QListView*>("sidebar");
            const auto* folders = dialog.findChild<QComboBox*>("lookInCombo");
            ASSERT_TRUE(edit && sidebar && folders);
            EXPECT_EQ(edit->text() + dialog.windowTitle(), shown + "Select");
            EXPECT_EQ(sidebar->model()->index(sidebar->model()->rowCount() - 1, 0).data(), "z:");
            EXPECT_GE(sidebar->viewport()->width(), sidebar->sizeHintForColumn(0));
            EXPECT_EQ(folders->currentText().toStdString(), "c:" + host + "/games");
            EXPECT_EQ(dialog.nameFilters(),
                      (QStringList{"Source (*.kel) (*.[kK][eE][lL])", "All Files (*.*) (*)"}));
            EXPECT_EQ(dialog.directory(), QDir(folder.path() + "/games"));  // the last one used
            whenOpen<QMessageBox>([](QMessageBox& box) {
                EXPECT_EQ(box.windowTitle() + box.text(), "SelectThere is no drive q:");
                EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
                box.close();
            });
            edit->setText("q:/other.kel");
            QTest::keyClick(edit, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            for (const char* inner : {"", "games"}) {
                edit->setText(QString("c:/") + inner);
                QTest::keyClick(edit, Qt::Key_Return);
                EXPECT_EQ(dialog.directory(), QDir(folder.filePath(inner)));
            }
            EXPECT_LT(dialog.width(), 790);
            edit->setText(shown.isEmpty() ? "c:/games/other.kel" : "other.kel");
            QTest::keyClick(edit, Qt::Key_Return);
        });
        EXPECT_EQ(toolkit.chooseFile(
                      *form, {"Select", "Source (*.kel)|*.kel|All Files (*.*)|*.*", offered}),
                  "c:" + host + "/games/other.kel");
    }
}

TEST_F(Windows, AFolderIsOpenedByItsRow) {
    runtime.tree["c:\\nwb"] = {"a", "b"};
    runtime.tree["z:\\"] = {};
    auto& dialog =
        dynamic_cast<dialogs::frmIncludeAdd&>(*fakes::everyForm(application, program).back());
    dialog.txtFolder.Text = "z:\\";
    dialog.Show();
    window = &windowOf(dialog);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.Dir1.Path() == "z:\\"; })) << "activated";
    EXPECT_FALSE(widget<QLineEdit>(dialog.txtFolder).hasSelectedText());
    dialog.Drive1.Drive = "c:";
    dialog.Dir1.Path = "c:\\nwb";
    auto& rows = widget<QTreeWidget>(dialog.Dir1);
    EXPECT_EQ(rows.topLevelItem(0)->child(0)->childCount(), 2);
    QTest::keyClick(&rows, Qt::Key_Up);
    EXPECT_EQ(dialog.Dir1.Path(), "c:\\nwb");
    QTest::keyPress(&rows, Qt::Key_Return);
    EXPECT_EQ(dialog.Dir1.Path(), "c:\\");
    const QTreeWidgetItem* root = rows.topLevelItem(0);
    ASSERT_TRUE(root && root->childCount() == 1);
    const QPoint nwb = rows.visualItemRect(root->child(0)).center();
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, nwb);
    EXPECT_EQ(dialog.Dir1.Path(), "c:\\");
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, nwb);
    EXPECT_EQ(dialog.Dir1.Path(), "c:\\nwb");
    auto& drives = widget<QComboBox>(dialog.Drive1);
    EXPECT_EQ(drives.itemIcon(0).pixmap(16).toImage(),
              drives.style()->standardIcon(QStyle::SP_DriveHDIcon).pixmap(16).toImage());
    QTest::keyClick(&drives, Qt::Key_Down);
    EXPECT_EQ(told, "Cannot open d:\\");
    EXPECT_EQ(drives.currentText(), "c:");
}

TEST_F(Windows, AMessageBoxAnswers) {
    using core::Runtime;
    const std::tuple<int, Qt::Key, Runtime::Answer> rows[] = {
        {Runtime::okOnly, Qt::Key_Escape, Runtime::Answer::Ok},
        {Runtime::exclamation, Qt::Key_Return, Runtime::Answer::Ok},
        {Runtime::yesNo, Qt::Key_Return, Runtime::Answer::Yes},
        {Runtime::yesNo, Qt::Key_Escape, Runtime::Answer::No}};
    const std::string path = "<b>c:" + QString("\\folder").repeated(30).toStdString() + "\\" +
                             std::string(250, 'x') + ' ' + std::string(60, 'y');
    const QString title(50, 'm');
    for (const auto& [flags, key, answer] : rows) {
        whenOpen<QMessageBox>([&, key = key, flags = flags](QMessageBox& box) {
            EXPECT_EQ(box.parentWidget(), window);
            EXPECT_EQ(box.text().remove(QChar(0x200b)).toStdString(), path + " not found");
            EXPECT_EQ(box.windowTitle(), title);
            QFont bold = box.font();
            bold.setBold(true);
            EXPECT_GT(box.width(), QFontMetrics(bold).horizontalAdvance(title) + 100);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_LT(box.width(), 800);
            EXPECT_EQ(box.icon() == QMessageBox::Warning, flags == Runtime::exclamation);
            EXPECT_EQ(box.button(QMessageBox::No) != nullptr, flags == Runtime::yesNo);
            EXPECT_GT(box.buttons()[0]->width(), 2 * box.buttons()[0]->height());
            // As a screen reader does.
            widget<QRadioButton>(form->compile.optFormat(2)).click();
            auto* tabs = widget<QTabWidget>(form->tbsOptions).tabBar();
            QAccessible::queryAccessibleInterface(tabs)->child(2)->actionInterface()->doAction(
                "Press");
            for (QAction* action : window->findChildren<QAction*>())
                action->trigger();
            QTest::keyClick(&box, key);
        });
        EXPECT_EQ(qt::messageBox(path + " not found", flags, title.toStdString()), answer);
    }
    EXPECT_EQ(heard + std::to_string(form->tbsOptions.SelectedItem), "2");
    Form& dialog = application.load<dialogs::frmSettings2>(program);
    whenOpen<QMainWindow>([this](const QMainWindow& opened) {
        const QPoint apart = opened.geometry().center() - window->geometry().center();
        EXPECT_LT(apart.manhattanLength(), 50);
    });
    dialog.ShowModal(*form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    const auto& selected = widget<QRadioButton>(form->compile.optFormat(0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return selected.isChecked(); }));
}

}  // namespace

/// Suppresses leaks of fontconfig, which has some since version 2.17.
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig";
}

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;  // of Qt's own dialogs
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    qputenv("TZ", "JST-9");  // so that local time differs
    qputenv("LC_TIME", "de_DE.UTF-8");
    const qt::QtApplication application(argv);
    if (QCoreApplication::arguments().size() != 1) return 2;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
