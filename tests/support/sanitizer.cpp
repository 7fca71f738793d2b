// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers' names

// The thread sanitizer doesn't see the atomics of libraries that are not built with it. Races are still told
// wherever our own code, called back by them, takes part.
extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
    return "race:libpulse*.so\n"
           "called_from_lib:libQt6Core.so\n"; // the queue of events that several players post to
}

// The sound server's library keeps a few bytes of an output that goes away while it plays.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libpulse*.so\n";
}

// NOLINTEND(bugprone-reserved-identifier)
