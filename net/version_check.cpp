#include "net/version_check.h"

#include <cstdlib>
#include <optional>

namespace {

std::optional<std::string> TextAfter(const std::string& label, const std::string& text) {
    const std::size_t found = text.find(label);
    if (found == std::string::npos)
        return {};
    return text.substr(found + label.size());
}

} // namespace

const char* const VersionFileUrl = "http://" SONVIRE_UPDATE_HOST "/versions/sonvire_mac.txt";

bool ReadVersionReply(const std::string& reply, LProcessCheckForVersionUpdates& job) {
    const auto version = TextAfter("version=", reply);
    const auto info = TextAfter("info=", reply);
    if (!version || !info)
        return false;
    job.version = std::strtod(version->c_str(), nullptr);
    job.info = info->substr(0, info->find('&')).substr(0, LProcessCheckForVersionUpdates::MaxInfoLength);
    return true;
}
