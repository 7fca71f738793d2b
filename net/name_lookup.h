#pragma once

#include "net/ip_address.h"

#include <future>

/// Looks "HOST" or "HOST:PORT" up on a thread of its own, as the system may take its time over it. Whoever
/// asks may leave before the result is there.
std::future<LIPAddressMultiHomedWithPort> LookUpInBackground(const std::string& address,
                                                             unsigned short defaultPort);
