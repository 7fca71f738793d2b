#pragma once

#include <cubeb/cubeb.h>

/// The functions of cubeb that are used, under their names without "cubeb_". The library brings a dozen
/// others along, so it is loaded when something first asks for sound and not when the program starts.
struct CubebLibrary {
    decltype(&cubeb_init) init = nullptr;
    decltype(&cubeb_destroy) destroy = nullptr;
    decltype(&cubeb_get_backend_id) get_backend_id = nullptr;
    decltype(&cubeb_enumerate_devices) enumerate_devices = nullptr;
    decltype(&cubeb_device_collection_destroy) device_collection_destroy = nullptr;
    decltype(&cubeb_stream_init) stream_init = nullptr;
    decltype(&cubeb_stream_start) stream_start = nullptr;
    decltype(&cubeb_stream_stop) stream_stop = nullptr;
    decltype(&cubeb_stream_destroy) stream_destroy = nullptr;
    decltype(&cubeb_stream_get_position) stream_get_position = nullptr;

    /// False where it is not installed, or lacks one of them: then there is no output.
    bool isThere = false;
};

/// Loaded by the first call. Thread: any. Blocks: the first call, for some milliseconds. Allocates: the first
/// call.
const CubebLibrary& Cubeb();
