#include "hires/files/soxr_library.h"

const SoxrLibrary& Soxr() {
    static const SoxrLibrary library;
    return library;
}
