#pragma once

#include <array>
#include <cstdint>
#include <netinet/in.h>
#include <string>

/// One IPv4 address with a port. The address of all ones stands for none.
class LIPAddressWithPort {
public:
    /// The address in network order, the port in the machine's.
    LIPAddressWithPort(std::uint32_t address, std::uint16_t port);

    bool IsValid() const { return socketAddress.sin_addr.s_addr != INADDR_NONE; }
    const sockaddr_in& GetSocketAddress() const { return socketAddress; }

private:
    sockaddr_in socketAddress{};
};

/// The addresses that a host goes by.
struct LIPAddressMultiHomed {
    static constexpr std::uint32_t MaxCount = 4;

    /// Looks the host up, in the order in which the system gives its addresses; a dotted address is the only
    /// one of itself. None where there is no such host. Waits for the system, for as long as that takes; any
    /// thread.
    void Resolve(const char* host);

    std::uint32_t count = 0;                         ///< 0..4
    std::array<std::uint32_t, MaxCount> addresses{}; ///< in network order
};

/// The same with the port that all of them share.
struct LIPAddressMultiHomedWithPort {
    LIPAddressMultiHomedWithPort() = default;
    LIPAddressMultiHomedWithPort(const char* address, unsigned short defaultPort) {
        Resolve(address, defaultPort);
    }

    /// Takes the port from "HOST:PORT", else `defaultPort`, and looks the host up.
    void Resolve(const char* address, unsigned short defaultPort);
    /// The address of this index; an invalid one beyond the last.
    LIPAddressWithPort GetHost(std::uint32_t index) const;

    std::uint16_t port = 0;
    LIPAddressMultiHomed hosts;
};

/// Cuts "HOST:PORT" at its colon: the host, and as the answer the port. Without a colon that is
/// `defaultPort`. Kept quirk: of the port's number the low 16 bits count.
unsigned short SplitPortFromAddr(const char* address, std::string& host, unsigned short defaultPort);
