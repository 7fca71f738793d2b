#pragma once

#include <functional>

/// The event loop of a program without a window: it delivers queued notifications. Made, run and destroyed on
/// the main thread.
class LEventLoop {
public:
    LEventLoop() = default;
    LEventLoop(const LEventLoop&) = delete;
    LEventLoop& operator=(const LEventLoop&) = delete;

    /// Delivers events until `Quit`.
    void Run();
    /// Waits for an event, for at most `milliseconds` (-1 for as long as it takes), and delivers it.
    void RunOnce(int milliseconds);
    /// From here on, while events are delivered: calls `react` once `descriptor` can be read from, which one
    /// that is -1 never can.
    void Watch(int descriptor, std::function<void()> react);
    /// Makes `Run` return once the event at hand is done with; before a `Run`, it does nothing.
    void Quit() { quit = true; }

private:
    bool quit = false;
    int watched = -1;
    std::function<void()> onReadable;
};
