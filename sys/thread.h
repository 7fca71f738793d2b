#pragma once

#include "sys/signal_object.h"

#include <atomic>
#include <mutex>
#include <pthread.h>

/// A worker thread that can be started again after it has ended. Owned and controlled by one thread; only
/// `StopThreadSoon` may be called from any.
class LThread {
public:
    static constexpr int PriorityNormal = 0;
    /// Real time: above everything that is not. Any other value is a round-robin priority. Where the user may
    /// not have what is asked for, the thread keeps the priority that it has.
    static constexpr int PriorityRealTime = 91;

    LThread() = default;
    /// Stops the thread. A derived class calls `StopThreadNow` in its own destructor, while it is still
    /// whole.
    virtual ~LThread();
    LThread(const LThread&) = delete;
    LThread& operator=(const LThread&) = delete;

    /// Starts the thread, after joining one that has ended. One that still runs is left alone, with the
    /// priority it has. False where the system has no thread to give.
    bool Start(int priority);
    /// Asks the thread to end; doesn't wait.
    void StopThreadSoon();
    /// Asks the thread to end and waits until it has.
    void StopThreadNow();
    bool IsRunning() const { return running; }

protected:
    /// The work of the thread. Returns soon once `IsStopRequested`.
    virtual void ThreadFunction() = 0;

    bool IsStopRequested() const { return stopRequested; }
    /// Sleeps until the thread is asked to stop or `other` is set, for at most `milliseconds`; false on
    /// time-out.
    bool WaitSignal(LSignalObjectRef other, unsigned int milliseconds) const;
    /// Changes the priority of the calling thread, which is this one.
    void SetPriority(int value);

private:
    static void* ThreadCallback(void* thread);

    LSignalObject stopSignal; ///< set to ask for the end, and by the thread itself when it ends
    std::atomic<bool> stopRequested = false;
    std::atomic<bool> running = false; ///< from `Start` until the thread function has returned
    bool started = false;              ///< `handle` is to be joined
    pthread_t handle{};
    int priority = PriorityNormal;
    std::mutex startMutex;
};
