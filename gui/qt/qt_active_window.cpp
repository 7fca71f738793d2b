#include "gui/qt/qt_active_window.h"

#include <QApplication>
#include <QMainWindow>

QWidget* FindActiveWindow() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QMainWindow*>(window))
            return window;
    return nullptr;
}
