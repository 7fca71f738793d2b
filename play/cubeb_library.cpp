#include "play/cubeb_library.h"

#include <dlfcn.h>
#include <type_traits>

namespace {

/// Stays loaded to the end of the process: its threads may outlive what has started them. Global, as a linked
/// library is: `PinPulseStreams` and `IsJackRunning` stand before functions of its own libraries.
CubebLibrary Load() {
    CubebLibrary library;
    void* handle = dlopen(SONVIRE_CUBEB, RTLD_LAZY | RTLD_GLOBAL);
    library.isThere = handle != nullptr;
    const auto find = [&library, handle](auto*& function, const char* name) {
        void* symbol = handle ? dlsym(handle, name) : nullptr;
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(symbol);
        library.isThere = library.isThere && symbol;
    };
    find(library.init, "cubeb_init");
    find(library.destroy, "cubeb_destroy");
    find(library.get_backend_id, "cubeb_get_backend_id");
    find(library.enumerate_devices, "cubeb_enumerate_devices");
    find(library.device_collection_destroy, "cubeb_device_collection_destroy");
    find(library.stream_init, "cubeb_stream_init");
    find(library.stream_start, "cubeb_stream_start");
    find(library.stream_stop, "cubeb_stream_stop");
    find(library.stream_destroy, "cubeb_stream_destroy");
    find(library.stream_get_position, "cubeb_stream_get_position");
    return library;
}

} // namespace

const CubebLibrary& Cubeb() {
    static const CubebLibrary library = Load();
    return library;
}
