#pragma once

#include "sys/shared_library.h"

#include <cubeb/cubeb.h>

/// The functions of cubeb that are used, under their names without "cubeb_". The library brings a dozen
/// others along, so it is loaded when something first asks for sound and not when the program starts. Where
/// it is not there, there is no output.
struct CubebLibrary : LSharedLibrary {
    CubebLibrary();

    decltype(&cubeb_init) init = Find("cubeb_init");
    decltype(&cubeb_destroy) destroy = Find("cubeb_destroy");
    decltype(&cubeb_get_backend_id) get_backend_id = Find("cubeb_get_backend_id");
    decltype(&cubeb_enumerate_devices) enumerate_devices = Find("cubeb_enumerate_devices");
    decltype(&cubeb_device_collection_destroy) device_collection_destroy =
        Find("cubeb_device_collection_destroy");
    decltype(&cubeb_stream_init) stream_init = Find("cubeb_stream_init");
    decltype(&cubeb_stream_start) stream_start = Find("cubeb_stream_start");
    decltype(&cubeb_stream_stop) stream_stop = Find("cubeb_stream_stop");
    decltype(&cubeb_stream_destroy) stream_destroy = Find("cubeb_stream_destroy");
    decltype(&cubeb_stream_get_position) stream_get_position = Find("cubeb_stream_get_position");
};

/// Loaded by the first call. Thread: any. Blocks: the first call, for some milliseconds. Allocates: the first
/// call.
const CubebLibrary& Cubeb();
