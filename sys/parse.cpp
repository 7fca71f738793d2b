#include "sys/parse.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

int ParseLeadingInt(const char* text) {
    constexpr long lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::strtol(text, nullptr, 10), lowest, highest));
}
