#include "play/output_names.h"

#include <algorithm>
#include <strings.h>

namespace {

constexpr std::size_t MaxNameBytes = 259;

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& each) { return IsSameOutputName(each, name); });
}

} // namespace

bool IsSameOutputName(const std::string& name, const std::string& other) {
    return strcasecmp(name.c_str(), other.c_str()) == 0;
}

std::vector<std::string> TellApart(std::vector<std::string> names) {
    for (std::string& name : names)
        name.resize(std::min(name.size(), MaxNameBytes));
    std::vector<std::string> apart;
    for (const std::string& name : names) {
        std::string unique = name;
        for (int number = 2; Holds(apart, unique) || (number > 2 && Holds(names, unique)); ++number) {
            const std::string end = " (" + std::to_string(number) + ")";
            unique = name.substr(0, MaxNameBytes - end.size()) + end;
        }
        apart.push_back(unique);
    }
    return apart;
}
