#include "app/window/time_text.h"

#include "tone/tone_list_report.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

std::string FormatClock(std::int64_t ms) {
    const std::int64_t tenths = ms / 100;
    const auto ofTheHour = static_cast<int>(tenths % 36000);
    const std::int64_t hours = tenths / 36000;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d.%d", ofTheHour / 600, ofTheHour / 10 % 60,
                  ofTheHour % 10);
    return (hours > 0 ? std::to_string(hours) + ":" : "") + text.data();
}

} // namespace

std::string FormatTime(LSoundTime time) {
    return FormatClock(std::max(0, time.GetMilliseconds()));
}

std::string FormatLength(std::int64_t ms) {
    if (ms < 60'000) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%g s",
                      static_cast<double>(std::max<std::int64_t>(0, ms)) / 1000);
        return text.data();
    }
    std::string digits = std::to_string(100 + ms % 100).substr(1);
    digits.erase(digits.find_last_not_of('0') + 1);
    return FormatClock(ms) + digits;
}

std::string FormatLength(const ToneListLength& length) {
    return FormatLength((length.ms + 5) / 10 * 10) + (length.unknown > 0 ? " or more" : "");
}
