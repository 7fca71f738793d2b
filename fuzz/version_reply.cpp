// Any bytes as a server's reply to the update check.

#include "net/version_check.h"
#include "net/web_address.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LProcessCheckForVersionUpdates job;
    (void)ReadVersionReply(std::string(reinterpret_cast<const char*>(data), size), job);
    (void)GetWebAddress(job.info);
    return 0;
}
