#pragma once

#include <memory>
#include <string>

class LMainWindow;

/// The program's place on the session bus (`org.freedesktop.Application`), by which the desktop and a second
/// start reach the program that runs already. Without a session bus nothing is there to reach. One for the
/// process, made after the toolkit.
class LQtSessionService {
public:
    LQtSessionService();
    ~LQtSessionService();
    LQtSessionService(const LQtSessionService&) = delete;
    LQtSessionService& operator=(const LQtSessionService&) = delete;

    /// True where the program runs already: it has promised to open the file, or without one to show
    /// itself. Otherwise this process is the one from here on, also where the other one closes or hangs.
    bool HandOver(const std::string& path);
    /// From the event loop on the window gets what others ask for, one after the other, until the loop ends;
    /// a start that comes later is on its own. It must outlive the loop.
    void Serve(LMainWindow& window);

private:
    bool TakeName();

    class Requests;
    std::unique_ptr<Requests> requests;
};
