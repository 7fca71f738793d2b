#include "sys/desktop/event_loop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <optional>

struct LEventLoop::Application {
    Application() {
        if (!QCoreApplication::instance())
            application.emplace(argumentCount, arguments);
        loop.emplace();
    }

    char name[8] = "sonvire";
    char* arguments[2] = {name, nullptr};
    int argumentCount = 1;
    std::optional<QCoreApplication> application;
    std::optional<QEventLoop> loop;
};

LEventLoop::LEventLoop() : application(std::make_unique<Application>()) {}

LEventLoop::~LEventLoop() = default;

void LEventLoop::Run(unsigned int milliseconds, const std::function<void()>& tick) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, tick);
    timer.start(static_cast<int>(milliseconds));
    application->loop->exec();
}

void LEventLoop::Quit() {
    application->loop->quit();
}
