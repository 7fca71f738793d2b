#pragma once

// How headers speak of threads, in one line of fixed words at the functions where it matters:
//
//   Thread: owner      the thread that made the object
//           player     the thread of a playback, which reads the source and fills the output's buffers
//           output     the output's own thread, which must be on time
//           main       the one that runs the program's event loop
//           any
//   Blocks: yes        may wait for another thread, a file or a server for as long as that takes
//           no         at most waits for a lock that is never held for longer than it takes to copy a few
//           numbers
//   Allocates: yes/no  may take or give back memory; what doesn't and does not block is fit for real time

#ifndef NDEBUG
#include <atomic>
#include <cassert>
#include <thread>
#endif

/// Makes sure, in builds for development, that a part of an object is used by one thread only: the one that
/// calls `Check` first. Does nothing, and takes no time, in a release.
class LThreadCheck {
public:
#ifdef NDEBUG
    void Check() const {}
    void Rebind() {}
#else
    void Check() const {
        std::thread::id first;
        const std::thread::id self = std::this_thread::get_id();
        const bool bound = user.compare_exchange_strong(first, self) || first == self;
        assert(bound && "called on another thread than before");
        static_cast<void>(bound);
    }
    /// Lets another thread take over, which is the next to call `Check`.
    void Rebind() {
        user = std::thread::id();
    }

private:
    mutable std::atomic<std::thread::id> user;
#endif
};
