#include "sys/desktop/event_loop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>
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
    std::optional<QSocketNotifier> notifier;
};

LEventLoop::LEventLoop() : application(std::make_unique<Application>()) {}

LEventLoop::~LEventLoop() = default;

void LEventLoop::Run() {
    application->loop->exec();
}

void LEventLoop::Run(unsigned int milliseconds, const std::function<void()>& tick) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, tick);
    timer.start(static_cast<int>(milliseconds));
    Run();
}

void LEventLoop::Watch(int descriptor, std::function<void()> react) {
    auto& notifier = application->notifier.emplace(descriptor, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [&notifier, call = std::move(react)] {
        notifier.setEnabled(false);
        call();
    });
}

void LEventLoop::Quit() {
    application->loop->quit();
}
