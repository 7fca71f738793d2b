#include "sys/event_loop.h"

#include "sys/queued_notify.h"

#include <poll.h>
#include <utility>

void LEventLoop::Run() {
    for (quit = false; !quit;)
        RunOnce(-1);
}

void LEventLoop::RunOnce(int milliseconds) {
    pollfd waited[] = {{watched, POLLIN, 0}, {LThreadQueuedNotify::GetDescriptor(), POLLIN, 0}};
    if (poll(waited, 2, milliseconds) <= 0) // or a signal handler ran
        return;
    if (waited[0].revents != 0) {
        watched = -1;
        onReadable();
    } else {
        LThreadQueuedNotify::DeliverNext();
    }
}

void LEventLoop::Watch(int descriptor, std::function<void()> react) {
    watched = descriptor;
    onReadable = std::move(react);
}
