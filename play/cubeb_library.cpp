#include "play/cubeb_library.h"

CubebLibrary::CubebLibrary() : LSharedLibrary(SONVIRE_CUBEB) {}

const CubebLibrary& Cubeb() {
    static const CubebLibrary library;
    return library;
}
