#include "app/command_ids.h"
#include "app/main_dialog.h"
#include "gui/qt/qt_toolkit.h"
#include "support/temp_dir.h"
#include "support/test_output.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

namespace {

/// The program's window on Qt's offscreen platform.
class ShownWindow : public ::testing::Test {
protected:
    ShownWindow() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        std::filesystem::remove_all(std::getenv("XDG_DATA_HOME"));
    }

    void Run(const std::function<void()>& user) {
        LQtToolkit toolkit(count, arguments);
        MainDialog window(toolkit, 1, arguments,
                          {.open = output.Opener(), .listNames = [] { return std::vector<std::string>{}; }});
        toolkit.Post([&] {
            main = FindMain();
            EXPECT_TRUE(QTest::qWaitForWindowActive(main));
            user();
            main->close();
        });
        window.Run();
    }
    static QWidget* FindMain() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (qobject_cast<QMainWindow*>(widget))
                return widget;
        return nullptr;
    }
    QTreeWidget* List() const { return main->findChild<QTreeWidget*>(QString::number(ControlList)); }
    QString Value(int row) const { return List()->topLevelItem(row)->text(1); }
    void Key(int key, Qt::KeyboardModifiers held = {}) const {
        QTest::keyClick(List(), static_cast<Qt::Key>(key), held);
    }
    QToolButton* Button(const QString& name) const {
        for (QToolButton* button : main->findChildren<QToolButton*>())
            if (button->accessibleName() == name || button->text() == name)
                return button;
        ADD_FAILURE() << "no button " << name.toStdString();
        return nullptr;
    }
    /// Does something to the dialog that opens next.
    static void Then(const std::function<void(QWidget&)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            QWidget* top = QApplication::activeModalWidget();
            if (!top || !QTest::qWaitForWindowActive(top))
                return Then(act);
            act(*top);
        });
    }

    char name[8] = "sonvire";
    char* arguments[2] = {name, nullptr};
    int count = 1;
    TestOutput output;
    QWidget* main = nullptr;
};

TEST_F(ShownWindow, IsDrivenByKeysAndClicks) {
    Run([this] {
        EXPECT_EQ(QApplication::focusWidget(), List());
        Key(Qt::Key_PageUp);
        EXPECT_EQ(Value(0), "2000.00Hz");
        QTest::mouseClick(Button("Stereo"), Qt::LeftButton);
        EXPECT_TRUE(Button("Stereo")->isChecked());
        EXPECT_EQ(List()->topLevelItemCount(), 2);
        Key(Qt::Key_Down);
        Key(Qt::Key_PageDown);
        EXPECT_EQ(Value(0), "2000.00Hz");
        EXPECT_EQ(Value(1), "500.00Hz");
        Then([](QWidget& box) {
            auto* input = box.findChild<QLineEdit*>();
            EXPECT_EQ(input->selectedText(), "500.00Hz");
            QTest::keyClicks(input, "1234.5");
            QTest::keyClick(&box, Qt::Key_Return);
        });
        Key(Qt::Key_Return);
        EXPECT_EQ(Value(1), "1234.50Hz");
        Key(Qt::Key_Space);
        EXPECT_FALSE(Button("Play")->isEnabled());
        QTest::mouseClick(Button("Stop"), Qt::LeftButton);
        EXPECT_TRUE(Button("Play")->isEnabled());
    });
}

TEST_F(ShownWindow, ShowsEveryItemWhole) {
    Run([this] {
        int pictures = 0;
        for (const QToolButton* button : main->findChildren<QToolButton*>()) {
            if (!button->defaultAction()) // one of the tool bar itself
                continue;
            ++pictures;
            EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty());
            EXPECT_FALSE(button->toolTip().isEmpty());
            EXPECT_FALSE(button->icon().pixmap(16, 16).toImage().isNull());
        }
        EXPECT_EQ(pictures, 4 + 16);
        Then([](QWidget& box) {
            for (const QWidget* child : box.findChildren<QWidget*>("", Qt::FindDirectChildrenOnly))
                EXPECT_TRUE(box.rect().contains(child->geometry())) << child->metaObject()->className();
            dynamic_cast<QDialog&>(box).reject();
        });
        QTest::mouseClick(Button("Preferences"), Qt::LeftButton);
    });
}

} // namespace
