#include "sys/thread.h"

#include "sys/alternate_stack.h"

#include <algorithm>
#include <sched.h>

LThread::~LThread() {
    StopThreadNow();
}

bool LThread::Start(int value) {
    const std::scoped_lock lock(startMutex);
    if (started) {
        if (running)
            return true;
        pthread_join(handle, nullptr);
    }
    stopRequested = false;
    stopSignal.Reset();
    priority = value;
    running = true;
    started = pthread_create(&handle, nullptr, ThreadCallback, this) == 0;
    if (!started)
        running = false;
    return started;
}

void* LThread::ThreadCallback(void* thread) {
    const LAlternateStack forSignals;
    auto& self = *static_cast<LThread*>(thread);
    self.SetPriority(self.priority);
    self.ThreadFunction();
    self.running = false;
    self.stopSignal.Signal();
    return nullptr;
}

void LThread::StopThreadSoon() {
    stopRequested = true;
    stopSignal.Signal();
}

void LThread::StopThreadNow() {
    if (!started)
        return;
    StopThreadSoon();
    pthread_join(handle, nullptr);
    started = false;
}

bool LThread::WaitSignal(LSignalObjectRef other, unsigned int milliseconds) const {
    return LSignalObjectRef(stopSignal).WaitSignalDual(other, milliseconds);
}

// Called on the thread itself, whose handle the starting thread may not have stored yet.
void LThread::SetPriority(int value) {
    const int policy = value == PriorityNormal ? SCHED_OTHER : SCHED_RR;
    const int lowest = sched_get_priority_min(policy), highest = sched_get_priority_max(policy);
    const sched_param parameters{.sched_priority = std::clamp(value, lowest, highest)};
    pthread_setschedparam(pthread_self(), policy, &parameters);
}
