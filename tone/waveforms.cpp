#include "tone/waveforms.h"

#include "tone/pink_noise.h"
#include "tone/tone_list_source.h"
#include "tone/tone_oscillator.h"
#include "tone/white_noise.h"

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
    {"Sine", {"sine"}, true, 131070, GetSineTable, nullptr},
    {"Square", {"square"}, true, 92682, GetSquareTable, nullptr},
    {"Triangular", {"triangular", "triangle", "tri"}, true, 165794, GetTriangularTable, nullptr},
    {"Saw Tooth", {"saw", "sawtooth"}, true, 165794, GetSawToothTable, nullptr},
    {"Impulse", {"impulse"}, true, SSTonePole::ImpulseLevel, nullptr, nullptr},
    {"White Noise", {"white", "whitenoise"}, false, 0, nullptr, OpenWhiteNoise},
    {"Pink Noise", {"pink", "pinknoise"}, false, 0, nullptr, OpenPinkNoise},
    {"From List", {}, false, 0, nullptr, OpenList},
};

} // namespace

std::span<const ToneWaveformRow> GetWaveforms() {
    return Waveforms;
}

double GetWaveformPeak(unsigned int code) {
    const ToneWaveformRow* waveform = FindWaveform(code);
    return waveform ? static_cast<double>(waveform->peak) / (16 * 32768) : 0;
}

const ToneWaveformRow* FindWaveform(unsigned int code) {
    return code < std::size(Waveforms) ? &Waveforms[code] : nullptr;
}
