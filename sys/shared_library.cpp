#include "sys/shared_library.h"

#include <dlfcn.h>

/// Global, as a linked library is: what the program has of the same names stands before functions of its own
/// libraries.
LSharedLibrary::LSharedLibrary(const char* nameOfLibrary)
    : name(nameOfLibrary),
      handle(dlopen(name, RTLD_LAZY | RTLD_GLOBAL)),
      isThere(handle != nullptr) {}

LSharedLibrary::Symbol LSharedLibrary::Find(const char* function) {
    void* found = handle ? dlsym(handle, function) : nullptr;
    isThere = isThere && found;
    return Symbol(found);
}

LFailure LSharedLibrary::GetFailure() const {
    const std::string file = name;
    return isThere ? LFailure() : "needs " + file.substr(0, file.find(".so")) + ", which is not installed";
}
