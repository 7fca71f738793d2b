#include "hires/files/sndfile_library.h"

const SndfileLibrary& Sndfile() {
    static const SndfileLibrary library;
    return library;
}
