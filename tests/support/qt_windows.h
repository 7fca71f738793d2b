#pragma once

#include "gui/qt/qt_toolkit.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QTest>
#include <QTimer>
#include <QToolButton>

/// Windows on Qt's offscreen platform, and what a user does to them.
class QtWindows : public testing::Test {
protected:
    /// Runs the window; `user` has it on the screen, and it closes afterwards.
    template <class Window>
    void Run(Window& window, const std::function<void()>& user) {
        toolkit.Post([&user] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(Main()));
            user();
            if (Main())
                Main()->close();
        });
        window.Run();
    }
    static QWidget* Main() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && qobject_cast<QMainWindow*>(widget))
                return widget;
        return nullptr;
    }
    template <class T>
    static T* Control(int id, QWidget* in = Main()) {
        return in->findChild<T*>(QString::number(id));
    }
    static QToolButton* ToolButton(const QString& name) {
        for (QToolButton* button : Main()->findChildren<QToolButton*>())
            if (button->accessibleName() == name)
                return button;
        return nullptr;
    }
    /// Does something to the dialog, box or menu that opens next, once it is on the screen.
    static void Then(const std::function<void(QWidget&)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            QWidget* top = QApplication::activePopupWidget();
            top = top ? top : QApplication::activeModalWidget();
            if (!top || !QTest::qWaitForWindowExposed(top))
                return Then(act);
            EXPECT_TRUE(QApplication::activePopupWidget() || QTest::qWaitForWindowActive(top));
            act(*top);
        });
    }

private:
    /// Arguments and platform as the toolkit needs them before it is made.
    struct Offscreen {
        Offscreen() { qputenv("QT_QPA_PLATFORM", "offscreen"); }
        char name[8] = "sonvire";
        char* arguments[2] = {name, nullptr};
        int count = 1;
    };
    Offscreen offscreen;

protected:
    LQtToolkit toolkit{offscreen.count, offscreen.arguments};
};
