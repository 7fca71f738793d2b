#include "play/jack_guard.h"

#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

constexpr unsigned long Listening = 0x10000; // among the flags of a socket

std::string GetSocketName(const std::string& server, const std::string& user) {
    return "/dev/shm/jack_" + server + "_" + user + "_0";
}

/// The same for the first generation of JACK, whose library is a choice of the system's.
std::string GetOldSocketName(const std::string& server, const std::string& user) {
    return "/dev/shm/jack-" + user + "/" + server + "/jack_0";
}

} // namespace

// The system's list of sockets tells a server that runs from a file that one has left, and disturbs neither.
bool IsJackRunning() {
    const char* const chosen = std::getenv("JACK_DEFAULT_SERVER");
    const std::string server = chosen ? chosen : "default", user = std::to_string(getuid());
    std::ifstream sockets("/proc/net/unix");
    for (std::string line; std::getline(sockets, line);) {
        std::istringstream fields(line);
        std::string address, references, protocol, flags, type, state, node, path;
        fields >> address >> references >> protocol >> flags >> type >> state >> node >> path;
        const bool listens = (std::strtoul(flags.c_str(), nullptr, 16) & Listening) != 0;
        if (listens && (path == GetSocketName(server, user) || path == GetOldSocketName(server, user)))
            return true;
    }
    return false;
}

// cubeb asks for JACK on its own whenever what it was told to use is not there, and can't be kept from it.
// This stands before the function that it asks with.
extern "C" [[gnu::visibility("default")]] void* jack_client_open(const char* name, int options, int* status) {
    if (!IsJackRunning())
        return nullptr;
    using Open = void* (*)(const char*, int, int*, ...);
    static const auto open = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "jack_client_open"));
    return open ? open(name, options, status) : nullptr;
}
