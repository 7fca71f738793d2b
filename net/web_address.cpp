#include "net/web_address.h"

#include <cctype>
#include <string_view>
#include <strings.h>

namespace {

constexpr const char* Blanks = " \t\r\n";
constexpr const char* AddressCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                          "-._~:/?#[]@!$&'()*+,;=%";

} // namespace

std::string GetWebAddress(const std::string& text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string::npos)
        return {};
    std::string address = text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
    if (address.find_first_not_of(AddressCharacters) != std::string::npos)
        return {};
    for (const std::string_view scheme : {"http://", "https://"})
        if (strncasecmp(address.c_str(), scheme.data(), scheme.size()) == 0 &&
            std::isalnum(static_cast<unsigned char>(address[scheme.size()])))
            return address;
    return {};
}

bool IsReservedAddress(const std::string& address) {
    const std::size_t scheme = address.find("://");
    const std::string rest = scheme == std::string::npos ? address : address.substr(scheme + 3);
    return rest.substr(0, rest.find_first_of(":/")).ends_with(".example");
}
