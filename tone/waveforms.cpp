#include "tone/waveforms.h"

#include "tone/pink_noise.h"
#include "tone/tone_list_source.h"
#include "tone/tone_oscillator.h"
#include "tone/white_noise.h"

#include <algorithm>

namespace {

std::uint32_t GetDurationMs(const SonvireData& tone) {
    return tone.HasFlag(ToneFlagDuration) ? tone.durationMs : 0;
}

LSoundSource OpenWhiteNoise(const SonvireData& tone, ToneListReport* /*report*/) {
    return LSoundSource::Make<SSWhiteNoise>(GetDurationMs(tone));
}

LSoundSource OpenPinkNoise(const SonvireData& tone, ToneListReport* /*report*/) {
    return LSoundSource::Make<SSPinkNoise>(GetDurationMs(tone));
}

LSoundSource OpenList(const SonvireData& tone, ToneListReport* report) {
    return OpenToneList(tone.GetListPath(), report);
}

constexpr ToneWaveformRow Waveforms[] = {
    {"Sine", {"sine"}, true, GetSineTable, nullptr},
    {"Square", {"square"}, true, GetSquareTable, nullptr},
    {"Triangular", {"triangular", "triangle", "tri"}, true, GetTriangularTable, nullptr},
    {"Saw Tooth", {"saw", "sawtooth"}, true, GetSawToothTable, nullptr},
    {"Impulse", {"impulse"}, true, nullptr, nullptr},
    {"White Noise", {"white", "whitenoise"}, false, nullptr, OpenWhiteNoise},
    {"Pink Noise", {"pink", "pinknoise"}, false, nullptr, OpenPinkNoise},
    {"From List", {}, false, nullptr, OpenList},
};

} // namespace

std::span<const ToneWaveformRow> GetWaveforms() {
    return Waveforms;
}

double GetWaveformPeak(unsigned int code) {
    const ToneWaveformRow* waveform = FindWaveform(code);
    int peak = code == ToneImpulse ? SSTonePole::ImpulseLevel : 0;
    if (waveform && waveform->getTable)
        peak = *std::max_element(waveform->getTable().begin(), waveform->getTable().end());
    return static_cast<double>(peak) / (16 * 32768);
}

const ToneWaveformRow* FindWaveform(unsigned int code) {
    return code < std::size(Waveforms) ? &Waveforms[code] : nullptr;
}
