#pragma once

#include <functional>
#include <memory>

/// The event loop of a program without a window: it delivers queued notifications. Made, run and destroyed on
/// the main thread.
class LEventLoop {
public:
    LEventLoop();
    ~LEventLoop();
    LEventLoop(const LEventLoop&) = delete;
    LEventLoop& operator=(const LEventLoop&) = delete;

    /// Delivers events until `Quit`.
    void Run();
    /// The same, and calls `tick` every `milliseconds` meanwhile.
    void Run(unsigned int milliseconds, const std::function<void()>& tick);
    /// From here on, while events are delivered: calls `react` once `descriptor` can be read from, which is
    /// not to be -1.
    void Watch(int descriptor, std::function<void()> react);
    /// Makes `Run` return once the event at hand is done with; before a `Run`, it does nothing.
    void Quit();

private:
    struct Application;
    std::unique_ptr<Application> application;
};
