#pragma once

#include "sys/shared_library.h"

#include <sndfile.h>

/// The functions of libsndfile that are used, under their names without "sf_". It brings the libraries of
/// several kinds of files along, and hardly any run of the program needs them.
struct SndfileLibrary : LSharedLibrary {
    SndfileLibrary() : LSharedLibrary("libsndfile.so.1") {}

    decltype(&sf_open_virtual) open_virtual = Find("sf_open_virtual");
    decltype(&sf_close) close = Find("sf_close");
    decltype(&sf_command) command = Find("sf_command");
    decltype(&sf_seek) seek = Find("sf_seek");
    decltype(&sf_set_string) set_string = Find("sf_set_string");
    decltype(&sf_get_string) get_string = Find("sf_get_string");
    decltype(&sf_readf_double) readf_double = Find("sf_readf_double");
    decltype(&sf_writef_int) writef_int = Find("sf_writef_int");
    decltype(&sf_write_raw) write_raw = Find("sf_write_raw");
};

/// Loaded by the first call. Thread: any. Blocks, allocates: the first call.
const SndfileLibrary& Sndfile();
