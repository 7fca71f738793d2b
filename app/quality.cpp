#include "app/quality.h"

#include "app/setting_names.h"
#include "tone/tone_data.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr Quality Qualities[] = {
    {"Standard: 44.1 kHz, 16 bits", 0}, {"High, saved at 44.1 kHz", 44100}, {"High, saved at 48 kHz", 48000},
    {"High, saved at 96 kHz", 96000},   {"High, saved at 192 kHz", 192000},
};

} // namespace

int Quality::GetHighestFrequency() const {
    return (IsHigh() ? savedRate : ToneSampleRate) / 2;
}

std::span<const Quality> GetQualities() {
    return Qualities;
}

const Quality& GetQuality() {
    const auto* found = std::find_if(
        std::begin(Qualities), std::end(Qualities),
        [rate = Setting::HighRate.Get()](const Quality& each) { return each.savedRate == rate; });
    return found == std::end(Qualities) ? Qualities[0] : *found;
}

std::string DescribeRate(int rate) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g kHz", rate / 1000.0);
    return text;
}
