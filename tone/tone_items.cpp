#include "tone/tone_items.h"

#include "sys/parse.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::int8_t SteppedAmplitudeMin = -90, AmplitudeMin = -127, AmplitudeMax = 0;
constexpr unsigned int FallbackDurationMs = 1000;

/// An item taken apart.
struct Item {
    explicit Item(unsigned int item) : kind(item & ~0xFFu), component(item & 0xFF) {
        const bool single = kind == ItemDuration || kind == ItemWaveform;
        if (single ? component != 0 : component >= MaxTones)
            kind = 0; // names no field
    }

    unsigned int kind;
    std::size_t component;
};

/// The frequency that an item names; none for other items. `Tone` is const or not.
template <class Tone>
auto FindFrequency(Tone& tone, const Item& item) -> decltype(&tone.startLeftHz[0]) {
    switch (item.kind) {
    case ItemStartLeft:
        return &tone.startLeftHz[item.component];
    case ItemStartRight:
        return &tone.startRightHz[item.component];
    case ItemEndLeft:
        return &tone.endLeftHz[item.component];
    case ItemEndRight:
        return &tone.endRightHz[item.component];
    default:
        return nullptr;
    }
}

/// What a frequency is called in the tone's mode; empty where the mode doesn't use it.
std::string GetFrequencyLabel(const SonvireData& tone, unsigned int kind) {
    const bool sweep = tone.HasFlag(ToneFlagSweep), stereo = tone.HasFlag(ToneFlagStereo);
    const bool right = kind == ItemStartRight || kind == ItemEndRight;
    const bool end = kind == ItemEndLeft || kind == ItemEndRight;
    if ((right && !stereo) || (end && !sweep))
        return {};
    const std::string place = !sweep ? "" : end ? "End " : "Start ";
    const std::string side = !stereo ? "" : right ? "Right " : "Left ";
    return place + side + "Frequency";
}

std::string Format(const char* format, auto value) {
    char text[400]; // the longest double has 310 digits
    std::snprintf(text, sizeof text, format, value);
    return text;
}

/// A step that is small below a border and large above it.
struct DurationStep {
    unsigned int border, below, above, least;
};
constexpr DurationStep SmallUp = {1000, 100, 1000, 0}, LargeUp = {1000, 500, 5000, 0};
constexpr DurationStep SmallDown = {2000, 100, 1000, 101}, LargeDown = {5000, 500, 5000, 501};

void Lengthen(std::uint32_t& ms, const DurationStep& step) {
    ms += ms < step.border ? step.below : step.above;
}

/// Not to 0, which would make a tone endless that is there to end.
void Shorten(std::uint32_t& ms, const DurationStep& step) {
    if (ms >= step.least)
        ms = std::max(ms - (ms < step.border ? step.below : step.above), 1u);
}

void Louder(std::int8_t& db) {
    if (db < AmplitudeMax)
        ++db;
}

void Quieter(std::int8_t& db) {
    if (db > SteppedAmplitudeMin)
        --db;
}

void DoubleFrequency(double& hz) {
    hz *= 2;
    if (hz > MaxSteppedHz)
        hz = MaxSteppedHz;
}

void HalveFrequency(double& hz) {
    hz /= 2;
}

/// Applies the step that goes with the item's kind.
template <class StepFrequency>
void Step(SonvireFile& tone, unsigned int number, StepFrequency stepFrequency,
          void (*stepAmplitude)(std::int8_t&), void (*stepDuration)(std::uint32_t&, const DurationStep&),
          const DurationStep& step) {
    const Item item(number);
    if (double* hz = FindFrequency(tone, item))
        stepFrequency(*hz);
    else if (item.kind == ItemAmplitude)
        stepAmplitude(tone.amplitudeDb[item.component]);
    else if (item.kind == ItemDuration)
        stepDuration(tone.durationMs, step);
}

std::optional<LNotice> TakeAmplitude(std::int8_t& taken, int db) {
    taken = static_cast<std::int8_t>(std::clamp<int>(db, AmplitudeMin, AmplitudeMax));
    if (taken == db)
        return {};
    return LNotice{"Amplitude", "Please enter negative value between [-127 .. 0]"};
}

std::optional<LNotice> TakeDuration(std::uint32_t& taken, int ms) {
    taken = ms > 0 ? static_cast<std::uint32_t>(ms) : FallbackDurationMs;
    if (ms > 0)
        return {};
    return LNotice{"Duration", "Please enter positive value"};
}

} // namespace

std::string SonvireData::GetItemName(unsigned int number) const {
    const Item item(number);
    const std::string name = GetToneName();
    const std::string component = name + " " + std::to_string(item.component + 1) + " ";
    switch (item.kind) {
    case ItemWaveform:
        return name;
    case ItemDuration:
        return name + " Duration";
    case ItemAmplitude:
        return component + "Relative Amplitude";
    case ItemStartLeft:
    case ItemStartRight:
    case ItemEndLeft:
    case ItemEndRight: {
        const std::string label = GetFrequencyLabel(*this, item.kind);
        return label.empty() ? "" : component + label;
    }
    default:
        return {};
    }
}

std::string SonvireData::GetItemValue(unsigned int number) const {
    const Item item(number);
    const bool right = item.kind == ItemStartRight || item.kind == ItemEndRight;
    if (right && !HasFlag(ToneFlagStereo))
        return {};
    if (const double* hz = FindFrequency(*this, item))
        return Format("%.2fHz", *hz);
    if (item.kind == ItemAmplitude)
        return Format("%ddB", int{amplitudeDb[item.component]});
    if (item.kind == ItemDuration)
        return Format("%dms", static_cast<int>(durationMs));
    return {};
}

std::optional<LNotice> SonvireData::SetItemValue(unsigned int number, const char* text) {
    const Item item(number);
    if (double* hz = FindFrequency(*this, item))
        *hz = std::strtof(text, nullptr); // Kept quirk: single precision, 1000.1 becomes 1000.0999755859375
    else if (item.kind == ItemAmplitude)
        return TakeAmplitude(amplitudeDb[item.component], ParseLeadingInt(text));
    else if (item.kind == ItemDuration)
        return TakeDuration(durationMs, ParseLeadingInt(text));
    return {};
}

void SonvireData::IncreaseItem(unsigned int item, const FrequencyStep& step) {
    Step(
        *this, item, [&step](double& hz) { AdjustIncreaseFrequencyValueHz(hz, step); }, Louder, Lengthen,
        SmallUp);
}

void SonvireData::DecreaseItem(unsigned int item, const FrequencyStep& step) {
    Step(
        *this, item, [&step](double& hz) { AdjustDecreaseFrequencyValueHz(hz, step); }, Quieter, Shorten,
        SmallDown);
}

void SonvireData::IncreaseItemLarge(unsigned int item) {
    Step(*this, item, DoubleFrequency, Louder, Lengthen, LargeUp);
}

void SonvireData::DecreaseItemLarge(unsigned int item) {
    Step(*this, item, HalveFrequency, Quieter, Shorten, LargeDown);
}

std::vector<unsigned int> GetShownItems(const SonvireData& tone) {
    const bool sweep = tone.HasFlag(ToneFlagSweep), stereo = tone.HasFlag(ToneFlagStereo);
    const bool finite = tone.HasFlag(ToneFlagDuration);
    if (!tone.HasComponents())
        return {finite ? ItemDuration : ItemWaveform};
    std::vector<unsigned int> items;
    const auto addIf = [&items](bool shown, unsigned int item) {
        if (shown)
            items.push_back(item);
    };
    for (unsigned int i = 0; i < tone.GetToneCount(); ++i) {
        items.push_back(ItemStartLeft + i);
        addIf(sweep, ItemEndLeft + i);
        addIf(stereo, ItemStartRight + i);
        addIf(stereo && sweep, ItemEndRight + i);
        addIf(tone.HasFlag(ToneFlagVariableAmplitude), ItemAmplitude + i);
    }
    addIf(finite, ItemDuration);
    return items;
}
