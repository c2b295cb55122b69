#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "console/workbench.h"
#include "fakes.h"
#include "platform/linux/disk/short_names.h"
#include "platform/linux/qt/form_window.h"
#include "platform/linux/qt/toolkit.h"

inline QString name(const std::string& text) {
    return QString::fromStdString(text);
}

inline QMainWindow& windowOf(forms::Form& form) {
    return dynamic_cast<qt::FormWindow&>(*form.window()).widget();
}

/// The program as it starts on a desktop with a font of this size, and a larger one for menus.
struct Desktop {
    Desktop(core::Runtime& runtime, int points) : usersFont(setFont(points)), program{runtime} {
        toolkit.chooseFont(console::Workbench(runtime, toolkit).everyForm());
    }
    /// A negative size is in pixels.
    static QFont setFont(int points) {
        QFont font("DejaVu Sans", points);
        if (points < 0) font.setPixelSize(-points);
        QApplication::setFont(font);
        if (points > 0) font.setPointSize(points + 4);
        QApplication::setFont(font, "QMenu");
        return font;
    }
    const QFont usersFont;
    qt::QtToolkit toolkit{{}, {}};
    forms::Application application{toolkit, {}};
    core::Program program;
};

/// The console in its window. The handlers of its controls log their names.
struct Windows : testing::Test {
    std::string told;
    std::string heard;
    std::string host;
    fakes::FakeRuntime runtime;
    qt::QtToolkit toolkit{
        [this](const std::string& path) {
            return path[0] == 'q' ? std::nullopt
                                  : std::optional<platform::HostPath>(host + path.substr(2));
        },
        [](const platform::HostPath& path) {
            return platform::fitsWindows(path.text()) ? "c:" + path.text() : "c:\\SHORT~1";
        }};
    forms::Application application{toolkit,
                                   [this](const std::string& text, bool) { told += text; }};
    core::Program program{runtime};
    console::frmConsole* form = nullptr;
    QMainWindow* window = nullptr;

    void SetUp() override {
        form = &application.load<console::frmConsole>(program);
        form->tbsOptions.SelectedItem = 2;
        open(*form);
        form->Refresh();
        EXPECT_TRUE(window->windowHandle()->isExposed());
        EXPECT_EQ(window->focusWidget(), widget<QTabWidget>(form->tbsOptions).tabBar());
    }
    /// Shows the form. Replaces the handlers of all its controls but the tabs.
    void open(forms::Form& opened) {
        fakes::logHandlers(opened, heard);
        opened.Show();
        window = &windowOf(opened);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    void TearDown() override {
        Desktop::setFont(9);
        // The message loop ends with the last form.
        QTimer::singleShot(
            0, [this] { application.Count() > 0 ? form->close() : QCoreApplication::exit(); });
        QApplication::exec();
    }
    /// Throws if the window has no such widget for the control.
    template <typename Kind = QWidget>
    Kind& widget(const forms::Control& control) {
        auto* found = window->findChild<Kind*>(name(control.fullName()));
        if (!found) throw std::runtime_error(control.fullName() + " has no such widget");
        return *found;
    }
    /// Lets `work` use the modal box that opens next. Closes what it leaves open.
    template <typename Box>
    static void whenOpen(const std::function<void(Box&)>& work) {
        QTimer::singleShot(0, [work] {
            const QPointer<QWidget> open(QApplication::activeModalWidget());
            auto* box = qobject_cast<Box*>(open.data());
            EXPECT_TRUE(box) << "no box of this kind has opened";
            if (box) work(*box);
            if (open && open->isVisible()) open->close();
        });
    }
    /// Presses a key. Returns the handlers that ran, and the focused control after "@".
    std::string strike(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused ? focused : window, key, modifiers);
        QCoreApplication::processEvents();
        EXPECT_FALSE(QApplication::activePopupWidget());
        focused = window->focusWidget();
        const std::string reached = focused ? focused->objectName().toStdString() : "none";
        return std::exchange(heard, "") + "@" + reached;
    }
};
