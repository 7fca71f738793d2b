#include "sys/background.h"

#include "sys/alternate_stack.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <pthread.h>
#include <sys/resource.h>

namespace {

constexpr unsigned int EndOfProgramMs = 500;
constexpr int LowestPriority = 19;

struct Pending {
    bool WaitUntilNone(unsigned int milliseconds) {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return count == 0; });
    }
    void Add(int change) {
        const std::scoped_lock lock(mutex);
        count += change;
        changed.notify_all();
    }

    std::mutex mutex;
    std::condition_variable changed;
    int count = 0;
};

Pending& GetPending() {
    static auto& pending = *new Pending; // never destroyed: what is stuck may yet come back to it
    static const struct AtEnd {
        ~AtEnd() { pending.WaitUntilNone(EndOfProgramMs); }
    } atEnd;
    return pending;
}

void* RunWork(void* owned) {
    const LAlternateStack forSignals;
    std::unique_ptr<std::function<void()>> work(static_cast<std::function<void()>*>(owned));
    (*work)();
    work.reset();
    GetPending().Add(-1);
    return nullptr;
}

} // namespace

bool RunInBackground(std::function<void()> work) {
    auto owned = std::make_unique<std::function<void()>>(std::move(work));
    GetPending().Add(1);
    pthread_t thread{};
    if (pthread_create(&thread, nullptr, RunWork, owned.get()) != 0) {
        GetPending().Add(-1);
        return false;
    }
    pthread_detach(thread);
    static_cast<void>(owned.release()); // the thread's now
    return true;
}

void LowerBackgroundPriority() {
    static_cast<void>(setpriority(PRIO_PROCESS, 0, LowestPriority)); // on Linux, of this thread alone
}

bool WaitForBackground(unsigned int milliseconds) {
    return GetPending().WaitUntilNone(milliseconds);
}
