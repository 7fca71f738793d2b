#include "net/ip_address.h"

#include "sys/parse.h"

#include <arpa/inet.h>
#include <memory>
#include <netdb.h>

LIPAddressWithPort::LIPAddressWithPort(std::uint32_t address, std::uint16_t port) {
    socketAddress.sin_family = AF_INET;
    socketAddress.sin_addr.s_addr = address;
    socketAddress.sin_port = htons(port);
}

void LIPAddressMultiHomed::Resolve(const char* host) {
    count = 0;
    in_addr dotted{};
    if (inet_pton(AF_INET, host, &dotted) == 1) {
        addresses[count++] = dotted.s_addr;
        return;
    }
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* first = nullptr;
    if (getaddrinfo(host, nullptr, &wanted, &first) != 0)
        return;
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owned(first, freeaddrinfo);
    for (const addrinfo* each = first; each && count < MaxCount; each = each->ai_next)
        addresses[count++] = reinterpret_cast<const sockaddr_in*>(each->ai_addr)->sin_addr.s_addr;
}

void LIPAddressMultiHomedWithPort::Resolve(const char* address, unsigned short defaultPort) {
    std::string host;
    port = SplitPortFromAddr(address, host, defaultPort);
    hosts.Resolve(host.c_str());
}

LIPAddressWithPort LIPAddressMultiHomedWithPort::GetHost(std::uint32_t index) const {
    return {index < hosts.count ? hosts.addresses[index] : INADDR_NONE, port};
}

unsigned short SplitPortFromAddr(const char* address, std::string& host, unsigned short defaultPort) {
    host = address;
    const std::size_t colon = host.find(':');
    if (colon == std::string::npos)
        return defaultPort;
    host.resize(colon);
    return static_cast<unsigned short>(ParseLeadingInt(address + colon + 1));
}
