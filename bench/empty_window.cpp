#include <QApplication>
#include <QMainWindow>

/// What any Qt program costs to start: `bench/window_figures` measures the real one beside it.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
