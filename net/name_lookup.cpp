#include "net/name_lookup.h"

#include "sys/background.h"

#include <memory>

std::future<LIPAddressMultiHomedWithPort> LookUpInBackground(const std::string& address,
                                                             unsigned short defaultPort) {
    const auto found = std::make_shared<std::promise<LIPAddressMultiHomedWithPort>>();
    const bool begun = RunInBackground(
        [=] { found->set_value(LIPAddressMultiHomedWithPort(address.c_str(), defaultPort)); });
    if (!begun)
        found->set_value({});
    return found->get_future();
}
