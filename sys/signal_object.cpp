#include "sys/signal_object.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

bool LSignalObjectRef::WaitSignalDual(LSignalObjectRef other, unsigned int milliseconds) const {
    pollfd waited[] = {{descriptor, POLLIN, 0}, {other.descriptor, POLLIN, 0}};
    const int timeout = static_cast<int>(std::min<unsigned int>(milliseconds, INT_MAX));
    return poll(waited, 2, timeout) > 0;
}

LSignalObject::LSignalObject() {
    if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0)
        ends[0] = ends[1] = -1;
}

LSignalObject::~LSignalObject() {
    for (const int end : ends)
        if (end >= 0)
            close(end);
}

void LSignalObject::Signal() {
    const char set = 1;
    // A full pipe is set already.
    while (write(ends[1], &set, 1) < 0 && errno == EINTR) {
    }
}

void LSignalObject::Reset() {
    char drained[64];
    ssize_t got = 0;
    do {
        got = read(ends[0], drained, sizeof drained);
    } while (got == sizeof drained || (got < 0 && errno == EINTR));
}
