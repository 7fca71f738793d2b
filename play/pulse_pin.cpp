#include "play/pulse_pin.h"

#include <dlfcn.h>

// A stream of the sound server would move to another output when its own goes away, and cubeb has no way to
// forbid that. This stands before the function of the server's library that cubeb opens its streams with, and
// adds what is missing: the server then ends the stream instead.

namespace {

constexpr int DontMove = 0x0200; // PA_STREAM_DONT_MOVE

} // namespace

extern "C" [[gnu::visibility("default")]] int pa_stream_connect_playback(void* stream, const char* device,
                                                                         const void* attributes, int flags,
                                                                         const void* volume,
                                                                         void* syncStream) {
    using Connect = int (*)(void*, const char*, const void*, int, const void*, void*);
    static const auto connect = reinterpret_cast<Connect>(dlsym(RTLD_NEXT, "pa_stream_connect_playback"));
    constexpr int invalid = -3; // -PA_ERR_INVALID
    return connect ? connect(stream, device, attributes, flags | DontMove, volume, syncStream) : invalid;
}

void PinPulseStreams() {}
