#include "gui/qt/qt_session_end.h"

#include "gui/qt/qt_active_window.h"

#include <QApplication>
#include <QDialog>
#include <QSessionManager>

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace {

constexpr int RetryMs = 20;

/// What a signal handler may touch: the end of the pipe that it writes to.
volatile std::sig_atomic_t signalPipe = -1;

void WakeEventLoop(int /*signal*/) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t ignored = write(signalPipe, &byte, 1);
}

void HandleSignals(void (*handler)(int)) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction action {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

LQtSessionEnd::LQtSessionEnd() {
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) {
        session.setRestartHint(QSessionManager::RestartNever);
        Begin();
    });
    timer.setInterval(RetryMs);
    connect(&timer, &QTimer::timeout, this, [this] { CloseTopmost(); });
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    signalPipe = pipeEnds[1];
    signalArrived = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(signalArrived.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (read(pipeEnds[0], &byte, 1) > 0) {
        }
        Begin();
    });
    HandleSignals(WakeEventLoop);
}

LQtSessionEnd::~LQtSessionEnd() {
    HandleSignals(SIG_DFL);
    for (const int end : pipeEnds)
        if (end >= 0)
            close(end);
}

void LQtSessionEnd::Begin() {
    begun = true;
    timer.start();
    CloseTopmost();
}

/// A dialog takes time to go, and may show another one before it does: the timer comes back until none is
/// left.
void LQtSessionEnd::CloseTopmost() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return;
    }
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        dialog->reject();
        return;
    }
    timer.stop();
    if (QWidget* window = FindActiveWindow())
        window->close();
}
