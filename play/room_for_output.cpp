#include "play/room_for_output.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>

namespace {

constexpr int Descriptors = 24; // more than any of the libraries has open, and some for others meanwhile

bool HasDescriptors(int count) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    int free = 0;
    for (rlim_t i = 0; i < limit.rlim_cur && free < count; ++i)
        if (fcntl(static_cast<int>(i), F_GETFD) < 0)
            ++free;
    return free == count;
}

bool HasThread() {
    pthread_t thread{};
    return pthread_create(
               &thread, nullptr, [](void* nothing) { return nothing; }, nullptr) == 0 &&
           pthread_join(thread, nullptr) == 0;
}

} // namespace

bool HasRoomForOutput(int others) {
    return HasDescriptors(Descriptors + others) && HasThread();
}
