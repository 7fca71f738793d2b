#include "tone/typed_item.h"

#include "tone/note_name.h"
#include "tone/tone_items.h"
#include "tone/tone_level.h"
#include "tone/typed_value.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>

namespace {

enum class Quantity { None, Frequency, Level, Duration };

struct QuantityRow {
    std::optional<double> (*parse)(const std::string& text);
    const char* format; ///< of what `SetItemValue` takes
    const char* input;  ///< with %d for the highest frequency
    const char* misread;
};

/// In the order of the quantities.
constexpr QuantityRow Quantities[] = {
    {nullptr, "", "", ""},
    {ParseFrequency, "%.9g", "Hz, 0 to %d; also 1.5k, A4, C#5 +3 ct", "is no frequency from 0 to %d Hz"},
    {ParseLevel, "%.0f", "whole dB, -127 to 0", "is no level from -127 to 0 dB"},
    {ParseDuration, "%.0f", "ms, from 1; also 0.5 s, 1:30, 2min, 1h", "is no duration"},
};

Quantity GetQuantity(unsigned int item) {
    switch (item & ~0xFFu) {
    case ItemStartLeft:
    case ItemStartRight:
    case ItemEndLeft:
    case ItemEndRight:
        return Quantity::Frequency;
    case ItemAmplitude:
        return Quantity::Level;
    case ItemDuration:
        return Quantity::Duration;
    default:
        return Quantity::None;
    }
}

const QuantityRow& GetRow(unsigned int item) {
    return Quantities[static_cast<std::size_t>(GetQuantity(item))];
}

std::string WithHighest(const char* words, int highestHz) {
    const std::string text = words;
    const std::size_t place = text.find("%d");
    return place == std::string::npos ? text : std::string(text).replace(place, 2, std::to_string(highestHz));
}

std::string ExplainComma(const std::string& text) {
    return text.find(',') == std::string::npos ? "" : "; a comma before three digits may mean two things";
}

} // namespace

TypedItem ReadTypedItem(const SonvireData& tone, unsigned int item, const std::string& text, int highestHz) {
    const QuantityRow& row = GetRow(item);
    const std::optional<double> number = row.parse ? row.parse(text) : std::nullopt;
    const bool isHeard =
        GetQuantity(item) != Quantity::Frequency || (number && *number >= 0 && *number <= highestHz);
    if (!number || !isHeard)
        return {.value = {}, .words = WithHighest(row.misread, highestHz) + ExplainComma(text)};
    char value[64];
    const double noMinusZero = *number + 0.0;
    std::snprintf(value, sizeof value, row.format, std::clamp<double>(noMinusZero, INT_MIN, INT_MAX));
    SonvireData made = tone;
    if (const auto refused = made.SetItemValue(item, value))
        return {.value = {}, .words = refused->text};
    if (const LFailure uncounted = made.CheckCountable();
        uncounted && GetQuantity(item) == Quantity::Duration)
        return {.value = {}, .words = uncounted.GetReason()};
    const std::string more = DescribeItemValue(made, item);
    return {.value = value, .words = "= " + made.GetItemValue(item) + (more.empty() ? "" : ", " + more)};
}

std::string DescribeItemInput(unsigned int item, int highestHz) {
    return WithHighest(GetRow(item).input, highestHz);
}

std::string DescribeItemValue(const SonvireData& tone, unsigned int item) {
    const std::string value = tone.GetItemValue(item);
    if (value.empty())
        return {};
    if (GetQuantity(item) == Quantity::Frequency)
        return DescribeNote(std::strtod(value.c_str(), nullptr));
    const auto peak = GetComponentPeakDbfs(tone, item % 256 % MaxTones);
    return GetQuantity(item) == Quantity::Level ? (peak ? FormatDbfs(*peak) : "silence") : "";
}

bool AreItemsAlike(unsigned int item, unsigned int other) {
    return GetQuantity(item) == GetQuantity(other);
}
