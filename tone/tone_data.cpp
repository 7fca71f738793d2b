#include "tone/tone_data.h"

#include "sound/sound_time.h"
#include "tone/waveforms.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr double DefaultHz = 1000.0;

} // namespace

SonvireFile::SonvireFile() {
    for (auto* frequencies : {&startLeftHz, &endLeftHz, &startRightHz, &endRightHz})
        std::fill(std::begin(*frequencies), std::end(*frequencies), DefaultHz);
    std::memset(amplitudeDb, 0, sizeof amplitudeDb);
    std::memset(listPath, 0, sizeof listPath);
}

const char* SonvireData::GetToneName() const {
    const ToneWaveformRow* row = FindWaveform(waveform);
    return row ? row->szToneName : "";
}

bool SonvireData::HasComponents() const {
    const ToneWaveformRow* row = FindWaveform(waveform);
    return !row || row->hasComponents;
}

std::string SonvireData::GetListPath() const {
    return {listPath, strnlen(listPath, sizeof listPath)};
}

unsigned int SonvireData::GetToneCount() const {
    return std::min<unsigned int>(numTones, MaxTones);
}

const char* SonvireData::GetModeName() const {
    if (!HasFlag(ToneFlagDuration))
        return "Constant (Continuous)";
    if (!HasFlag(ToneFlagSweep))
        return "Constant (Specified Duration)";
    return HasFlag(ToneFlagLogSweep) ? "Sweep (Log)" : "Sweep (Linear)";
}

void SonvireData::SetDuration(std::uint32_t ms) {
    flags |= ToneFlagDuration;
    durationMs = ms;
    repeat = 0;
}

LFailure SonvireData::CheckCountable() const {
    const bool isOfTheList = IsList() && repeat == 0;
    const bool counts = isOfTheList || !HasFlag(ToneFlagDuration) || durationMs <= MaxToneDurationMs;
    return counts ? LFailure() : "lasts longer than the 13 and a half hours that a tone can be counted for";
}

int SonvireData::GetDurationFrames() const {
    return HasFlag(ToneFlagDuration) ? ::GetDurationFrames(durationMs, ToneSampleRate) : 0;
}
