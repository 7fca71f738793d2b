#include "app/window/command_ids.h"
#include "app/window/main_dialog.h"
#include "support/qt_windows.h"
#include "support/test_output.h"

#include <QDialog>
#include <QTreeWidget>

#include <filesystem>

namespace {

TEST_F(QtWindows, TheProgramsWindowShowsEveryItemWhole) {
    std::filesystem::remove_all(std::getenv("XDG_DATA_HOME")); // and what a crash has left there
    const char* const arguments[] = {"sonvire"};
    TestOutput output;
    MainDialog window(toolkit, 1, arguments,
                      {.open = output.Opener(), .listNames = [] { return std::vector<std::string>{}; }});
    Run(window, [] {
        EXPECT_EQ(QApplication::focusWidget(), Control<QTreeWidget>(ControlList));
        int pictures = 0;
        for (const QToolButton* button : Main()->findChildren<QToolButton*>()) {
            if (!button->defaultAction()) // one of the tool bar itself
                continue;
            ++pictures;
            EXPECT_FALSE(button->accessibleName().isEmpty());
            EXPECT_FALSE(button->toolTip().isEmpty());
            EXPECT_FALSE(button->icon().pixmap(16, 16).toImage().isNull());
        }
        EXPECT_EQ(pictures, 4 + 16);
        Then([](QWidget& box) {
            for (const QWidget* child : box.findChildren<QWidget*>("", Qt::FindDirectChildrenOnly))
                EXPECT_TRUE(box.rect().contains(child->geometry())) << child->metaObject()->className();
            dynamic_cast<QDialog&>(box).reject();
        });
        QTest::mouseClick(ToolButton("Preferences"), Qt::LeftButton);
    });
}

} // namespace
