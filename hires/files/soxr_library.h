#pragma once

#include "sys/shared_library.h"

#include <soxr.h>

/// The functions of soxr that are used, under their names without "soxr_".
struct SoxrLibrary : LSharedLibrary {
    SoxrLibrary() : LSharedLibrary("libsoxr.so.0") {}

    decltype(&soxr_io_spec) io_spec = Find("soxr_io_spec");
    decltype(&soxr_quality_spec) quality_spec = Find("soxr_quality_spec");
    decltype(&soxr_runtime_spec) runtime_spec = Find("soxr_runtime_spec");
    decltype(&soxr_create) create = Find("soxr_create");
    decltype(&soxr_set_input_fn) set_input_fn = Find("soxr_set_input_fn");
    decltype(&soxr_output) output = Find("soxr_output");
    decltype(&soxr_delete) destroy = Find("soxr_delete"); // "delete" is a word of the language
};

/// Loaded by the first call. Thread: any. Blocks, allocates: the first call.
const SoxrLibrary& Soxr();
