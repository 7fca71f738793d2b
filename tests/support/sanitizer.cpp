// The thread sanitizer doesn't see the atomics of libraries that are not built with it. Races are still told
// wherever our own code, called back by them, takes part.
extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
    return "race:libpulse*.so\n";
}
