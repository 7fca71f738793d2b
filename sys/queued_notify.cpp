#include "sys/queued_notify.h"

#include "sys/signal_object.h"

#include <deque>
#include <mutex>

namespace {

/// What is posted, in order. Not empty exactly while `any` is set.
class Queue {
public:
    void Append(LThreadQueuedNotify& receiver) {
        const std::scoped_lock lock(mutex);
        if (posted.empty())
            any.Signal();
        posted.push_back(&receiver);
    }
    /// Null where nothing is posted.
    LThreadQueuedNotify* TakeNext() {
        const std::scoped_lock lock(mutex);
        if (posted.empty())
            return nullptr;
        LThreadQueuedNotify* const next = posted.front();
        posted.pop_front();
        ResetIfEmpty();
        return next;
    }
    void Drop(const LThreadQueuedNotify& receiver) {
        const std::scoped_lock lock(mutex);
        if (std::erase(posted, &receiver) > 0)
            ResetIfEmpty();
    }

    LSignalObject any;

private:
    void ResetIfEmpty() {
        if (posted.empty())
            any.Reset();
    }

    std::mutex mutex;
    std::deque<LThreadQueuedNotify*> posted;
};

Queue& MainQueue() {
    static Queue queue;
    return queue;
}

} // namespace

LThreadQueuedNotify::~LThreadQueuedNotify() {
    MainQueue().Drop(*this);
}

void LThreadQueuedNotify::PostQueueNotify() {
    MainQueue().Append(*this);
}

int LThreadQueuedNotify::GetDescriptor() {
    return LSignalObjectRef(MainQueue().any).GetDescriptor();
}

void LThreadQueuedNotify::DeliverNext() {
    if (LThreadQueuedNotify* const next = MainQueue().TakeNext())
        next->EvNotify();
}
