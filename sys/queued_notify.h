#pragma once

/// Lets any thread ask for a callback on the main thread, through the event loop that runs there, whichever
/// that is: `LEventLoop` or a toolkit's. Made and destroyed on the main thread; what is still posted then is
/// dropped.
class LThreadQueuedNotify {
public:
    LThreadQueuedNotify() = default;
    virtual ~LThreadQueuedNotify();
    LThreadQueuedNotify(const LThreadQueuedNotify&) = delete;
    LThreadQueuedNotify& operator=(const LThreadQueuedNotify&) = delete;

    /// Each call leads to one `EvNotify`. No thread may call it any more when the object is destroyed.
    /// Thread: any. Blocks: no. Allocates: yes.
    void PostQueueNotify();

    /// For an event loop: can be read from while anything is posted, and then `DeliverNext` is to be called.
    /// -1 where the system has none to give. Thread: any.
    static int GetDescriptor();
    /// Calls the `EvNotify` that was posted first, which may run an event loop itself; does nothing where
    /// nothing is posted. Thread: main.
    static void DeliverNext();

protected:
    /// Runs in the event loop, in the order of the posts.
    virtual void EvNotify() = 0;
};
