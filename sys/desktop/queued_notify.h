#pragma once

#include <memory>

/// Lets any thread ask for a callback on the thread that made the object, through that thread's event queue.
/// Made and destroyed on the same thread; what is still posted then is dropped.
class LThreadQueuedNotify {
public:
    LThreadQueuedNotify();
    virtual ~LThreadQueuedNotify();
    LThreadQueuedNotify(const LThreadQueuedNotify&) = delete;
    LThreadQueuedNotify& operator=(const LThreadQueuedNotify&) = delete;

    /// Any thread: each call leads to one `EvNotify`. No thread may call it any more when the object is
    /// destroyed.
    void PostQueueNotify();

protected:
    /// Runs in the event loop, in the order of the posts.
    virtual void EvNotify() = 0;

private:
    class Receiver;
    std::unique_ptr<Receiver> receiver;
};
