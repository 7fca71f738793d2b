#include "app/window/newest_work.h"

#include "sys/background.h"

#include <atomic>
#include <mutex>
#include <utility>

struct NewestWork::Shared {
    std::atomic<int> newest = 0;
    std::mutex mutex;
    Work next;           ///< under the mutex
    bool isBusy = false; ///< the same
};

bool NewestWork::Ask(Work work) {
    if (!shared)
        shared = std::make_shared<Shared>();
    ++shared->newest;
    const std::scoped_lock lock(shared->mutex);
    shared->next = std::move(work);
    return shared->isBusy || Start(shared);
}

void NewestWork::Drop() {
    if (!shared)
        return;
    ++shared->newest;
    const std::scoped_lock lock(shared->mutex);
    shared->next = nullptr;
}

/// Under the mutex. Each piece has a thread of its own, as one may have lowered its priority.
bool NewestWork::Start(const std::shared_ptr<Shared>& shared) {
    shared->isBusy = shared->next && RunInBackground([shared] {
                         std::unique_lock lock(shared->mutex);
                         const Work work = std::exchange(shared->next, nullptr);
                         const int mine = shared->newest;
                         lock.unlock();
                         if (work)
                             work([shared, mine] { return shared->newest == mine; });
                         lock.lock();
                         Start(shared);
                     });
    return shared->isBusy;
}
