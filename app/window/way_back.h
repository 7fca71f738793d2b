#pragma once

#include <functional>
#include <memory>
#include <mutex>

class LToolkit;

/// The way from work in the background back into the event loop. Both the work and the window hold it.
class WayBack : public std::enable_shared_from_this<WayBack> {
public:
    explicit WayBack(LToolkit& windowToolkit) : toolkit(&windowToolkit) {}

    /// Calls from the event loop, unless it is shut by then. Any thread.
    void Post(std::function<void()> call);
    /// Before what the calls reach, or the toolkit, ends. UI thread.
    void Shut();

private:
    std::mutex mutex;
    LToolkit* toolkit; ///< under the mutex; null once it is shut
};
