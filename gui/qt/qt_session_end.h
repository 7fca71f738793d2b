#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

/// Closes the main window in good order when the session ends or the process is asked to (SIGTERM, SIGINT,
/// SIGHUP, the desktop's log-out): as if the user had first cancelled every dialog that is open, from the
/// topmost to the last. One for the process.
class LQtSessionEnd : public QObject {
public:
    LQtSessionEnd();
    ~LQtSessionEnd() override;

    /// Begins to close. UI thread.
    void Begin();
    bool HasBegun() const { return begun; }

private:
    void CloseTopmost();

    int pipeEnds[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> signalArrived;
    QTimer timer;
    bool begun = false;
};
