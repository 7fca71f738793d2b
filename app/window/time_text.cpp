#include "app/window/time_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

std::string FormatTime(LSoundTime time) {
    const int tenths = std::max(0, time.GetMilliseconds()) / 100;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d.%d", tenths / 600 % 60, tenths / 10 % 60, tenths % 10);
    const int hours = tenths / 36000;
    return (hours > 0 ? std::to_string(hours) + ":" : "") + text.data();
}
