#include <malloc.h>

#include <csignal>
#include <iostream>
#include <random>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/end_request.h"
#include "platform/linux/qt/message_box.h"
#include "qt_windows.h"
#include "rules.h"

namespace {

/// Returns the bytes in use on the heap; 0 under a sanitizer.
std::size_t heapInUse() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// A user who presses any key and clicks anywhere, in the topmost window.
struct WindowWalk : testing::Test {
    std::size_t any(std::size_t count) { return random() % count; }
    std::string anyName() { return names[any(names.size())].toStdString(); }

    /// Acts on the window and on those that open above it, until it closes or `most` times.
    void work(QWidget& window, int most) {
        const QPointer<QWidget> open(&window);
        const QPointer<QWidget> below = std::exchange(worked, open);
        for (const int end = actions + most; actions < end && !HasFatalFailure();) {
            SCOPED_TRACE("action " + std::to_string(++actions));
            const int before = modals;
            act(window);
            QCoreApplication::processEvents();
            if (!open || !open->isVisible()) break;
            for (int form = 0; form < application.Count(); ++form)
                expectShown(application.Forms(form));
            if (below) continue;
            rules::expectAll(console, program.state, modals != before);
            runtime.shells.clear();
            if (settled == 0 && actions > most / 10) settled = heapInUse();
        }
        if (open && below) open->close();
        worked = below;
    }

    void act(QWidget& window) {
        const bool files = qobject_cast<QFileDialog*>(&window);
        if (!files && any(3) == 0) return assist();
        if (files) window.findChild<QLineEdit*>()->setText("any");
        if (files || any(2)) {
            const Qt::Key key = any(2) ? keys[any(keys.size())] : Qt::Key(Qt::Key_A + any(26));
            QTest::keyClick(window.windowHandle(), files ? keys[any(2)] : key,
                            Qt::KeyboardModifiers(any(2) || files ? 0 : 1 << (25 + any(3))));
            return;
        }
        QWidget* popup = QApplication::activePopupWidget();
        QWidget& place = popup ? *popup : window;
        QList<QWidget*> inside = place.findChildren<QWidget*>() << &place;
        inside.removeIf(
            [&](auto* inner) { return !inner->isVisible() || inner->window() != &place; });
        const QWidget& target = *inside[any(inside.size())];
        const QPoint at = target.mapTo(&place, QPoint(any(target.width()), any(target.height())));
        QTest::mouseEvent(any(4) ? QTest::MouseClick : QTest::MouseDClick, place.windowHandle(),
                          Qt::LeftButton, {}, at);
    }

    /// Acts as assistive technology does, also on disabled windows below a modal one.
    void assist() {
        const QWidgetList widgets = QApplication::allWidgets();
        QWidget* target = widgets[any(widgets.size())];
        auto* spoken = QAccessible::queryAccessibleInterface(target);
        if (spoken && spoken->childCount() > 0 && any(2))
            spoken = spoken->child(any(spoken->childCount()));
        if (!target->isVisible() || !spoken || !spoken->isValid()) return;
        if (auto* text = spoken->editableTextInterface())
            text->replaceText(0, spoken->textInterface()->characterCount(), name(anyName()));
        else if (auto* button = qobject_cast<QAbstractButton*>(target))
            button->click();  // its action would come 100 ms later, into another one
        else if (auto* actions = spoken->actionInterface();
                 actions && !actions->actionNames().isEmpty())
            actions->doAction(actions->actionNames()[any(actions->actionNames().size())]);
    }

    static void expectShown(forms::Form& form) {
        for (const forms::Control* control : form.allControls()) {
            const auto* peer = dynamic_cast<qt::ControlPeer*>(control->peer());
            if (!peer) continue;
            const QWidget& widget = peer->widget();
            ASSERT_EQ(widget.isVisibleTo(widget.parentWidget()), control->inSight());
            if (!control->Visible) continue;
            const QVariant own = widget.metaObject()->userProperty().read(&widget);
            const auto* box = dynamic_cast<const forms::CheckBox*>(control);
            ASSERT_TRUE(!box || own.toBool() == (box->Value != 0)) << box->fullName();
            const auto* option = dynamic_cast<const forms::OptionButton*>(control);
            ASSERT_TRUE(!option || own.toBool() == option->Value) << option->fullName();
            const bool tabStop = widget.focusPolicy() & Qt::TabFocus;
            ASSERT_TRUE(!option || !option->usable() || tabStop == option->isTabStop());
            const auto* text = dynamic_cast<const forms::TextBox*>(control);
            const std::string shown = own.toString().replace("\n", "\r\n").toStdString();
            ASSERT_TRUE(!text || shown == text->Text()) << shown;
            if (const auto* list = dynamic_cast<const forms::ListBox*>(control)) {
                const auto& rows = dynamic_cast<const QListWidget&>(widget);
                ASSERT_EQ(rows.count(), list->ListCount());
                // With the focus, Qt makes the first row current without selecting it.
                ASSERT_EQ(rows.selectionModel()->selectedRows().value(0).row(), list->ListIndex);
            }
            ASSERT_EQ(widget.isEnabledTo(widget.parentWidget()), control->Enabled);
        }
    }

    /// Works the modal windows that an action opens.
    void watch() {
        QTimer::singleShot(1, &timers, [this] { watch(); });
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == worked) return;
        ASSERT_TRUE(modal->windowHandle()->transientParent());
        ++modals;
        work(*modal, 40);
    }

    const std::vector<Qt::Key> keys{
        Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,       Qt::Key_Tab,  Qt::Key_Space,
        Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Left,
        Qt::Key_Colon,  Qt::Key_Period, Qt::Key_Backslash, Qt::Key_Tab};
    const QStringList names =
        QString(
            "|cave.kcd|d:\\tool.exe|d:quest.kelm|a,b\"c.log|much too long.kel|"
            "c:\\games\\cave.kel|c:\\my.dir\\games\\|\\my.dir\\game")
            .split('|');
    const int seed = qEnvironmentVariable("NWBW_SEED", "1").toInt();
    std::mt19937 random{static_cast<unsigned>(seed)};
    const QTemporaryDir folder;
    fakes::FakeRuntime runtime;
    qt::QtToolkit toolkit{
        [this](const std::string&) { return platform::HostPath(folder.path().toStdString()); },
        [this](const platform::HostPath&) { return anyName(); }};
    forms::Application application{
        toolkit, [this](const std::string& text, bool) { runtime.rtcMsgBox(text, 48, ""); }};
    core::Program program{runtime};
    console::frmConsole& console = application.load<console::frmConsole>(program);
    QObject timers;
    QPointer<QWidget> worked;
    int actions = 0;
    int modals = 0;
    std::size_t settled = 0;
};

TEST_F(WindowWalk, RandomKeysAndClicksKeepEveryRuleAndNoMemory) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const int most = qEnvironmentVariable("NWBW_ACTIONS", "1500").toInt();
    runtime.whileBoxIsOpen = [this] {
        const auto box = std::exchange(runtime.boxes, {}).back();
        runtime.answer = qt::messageBox(box.text, box.flags, box.title);
    };
    for (const QString& name : names)
        runtime.files[name.toStdString()];
    console.mnuFileExit.Enabled = false;
    QTimer::singleShot(0, [&] {
        console.Show();
        watch();
        work(windowOf(console), most);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // Allows for Qt's caches and the undo histories; a leaked form or window takes far more.
        EXPECT_LE(heapInUse(), settled + 2'000'000);
        console.close();
    });
    QApplication::exec();
    EXPECT_GT(modals, most / 50);
}

/// Requests the program's end while a dialog, a file dialog and a message box are open, and lets a
/// step of the closing fail.
struct End : WindowWalk {
    End() {
        // A signal that was ignored at the start, as under nohup, would stay so.
        for (const int number : {SIGTERM, SIGHUP, SIGINT})
            std::signal(number, SIG_DFL);
        runtime.whileBoxIsOpen = [this] { qt::messageBox(runtime.boxes.back().text, 48, "T"); };
    }
    void expectSavedAfter(const std::function<void()>& request) {
        const qt::EndRequest endRequest(application, nullptr);
        const auto soon = [](const auto& action) { QTimer::singleShot(0, action); };
        auto answer = core::Runtime::Answer::Yes;
        testing::internal::CaptureStderr();
        soon([&] {
            console.Show();
            console.edit.txtFnameE.type("last.kel");
            soon([&] {
                soon([&] {
                    soon([&] {
                        runtime.failAt = runtime.calls + 1;
                        request();
                    });
                    answer = qt::messageBox("First?", core::Runtime::yesNo, "");
                    qt::messageBox("Second", core::Runtime::okOnly, "");
                });
                EXPECT_TRUE(QApplication::activeModalWidget());
                forms::Control* browse = application.Forms(1).find("btnBrowse(0)");
                ASSERT_TRUE(browse);
                browse->click();
            });
            console.mnuOptionsPrograms.click();
        });
        QApplication::exec();
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(told.ends_with("T: rtcSaveSetting failed\n: Second\n")) << told;
        EXPECT_EQ(application.Count(), 0);
        EXPECT_EQ(answer, core::Runtime::Answer::No);
        EXPECT_NE(runtime.files[fakes::ini].text.find("last.kel"), std::string::npos);
    }
};

TEST_F(End, OfTheDisplayServer) {
    console.edit.txtFnameE.type("last.kel");
    const qt::EndRequest endRequest(application, [&] {
        runtime.failAt = runtime.calls + 1;
        console.save();
        console.save();
        std::cerr << runtime.files[fakes::ini].text;
    });
    EXPECT_EXIT(std::exit(1), testing::ExitedWithCode(1), "T: rtcDir failed(.|\n)*last.kel");
}

TEST_F(End, OfTheDesktop) {
    expectSavedAfter([] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    });
}

TEST_F(End, ByASignalOfWhichTheSecondWaitsForNothing) {
    {
        std::signal(SIGHUP, SIG_IGN);  // as under nohup
        const qt::EndRequest endRequest(application, nullptr);
        EXPECT_EQ(raise(SIGHUP) + application.Count(), 1);
        std::signal(SIGHUP, SIG_DFL);
    }
    for (const auto& [first, second] :
         {std::pair(SIGTERM, SIGHUP), {SIGHUP, SIGINT}, {SIGINT, SIGTERM}}) {
        const qt::EndRequest endRequest(application, nullptr);
        EXPECT_EXIT((raise(first), raise(second)), testing::KilledBySignal(second), "");
    }
    expectSavedAfter([] { raise(SIGHUP); });
}

}  // namespace
