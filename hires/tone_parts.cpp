#include "hires/tone_parts.h"

#include "hires/exact_math.h"
#include "hires/hires_source.h"
#include "hires/oscillator.h"
#include "hires/pink_noise.h"
#include "sound/level.h"
#include "tone/waveforms.h"

#include <algorithm>
#include <cmath>

namespace {

/// What noise of 0 dB is beside the peak of a sine of 0 dB, so that it is as loud as in the standard quality:
/// there, white noise has twice that peak, and pink noise between 20 Hz and 20 kHz the density of this, where
/// white noise of the sine's peak at 44100 Hz is 1.
constexpr double WhitePeak = 2, PinkDensity = 1.18;

} // namespace

HiresToneParts::HiresToneParts(const SonvireData& tone, int framesPerSecond)
    : rate(framesPerSecond),
      channels(tone.HasComponents() && tone.HasFlag(ToneFlagStereo) ? 2 : 1) {
    const std::int64_t pass =
        tone.HasFlag(ToneFlagDuration) ? CountHiresFrames(tone.durationMs, rate) : HiresSource::Endless;
    length = tone.repeat != 0 || pass == 0 ? HiresSource::Endless : pass;
    if (tone.HasComponents())
        AddComponents(tone, pass);
    else
        AddNoise(tone.waveform);
}

void HiresToneParts::AddComponents(const SonvireData& tone, std::int64_t pass) {
    using Sweep = HiresFrequencyPath::Sweep;
    waveform = HiresWaveform::Find(tone.waveform);
    if (!waveform)
        return;
    tables = std::make_unique<HiresWaveTables>(*waveform);
    const bool sweeps = tone.HasFlag(ToneFlagSweep) && pass != HiresSource::Endless && pass > 0;
    const Sweep sweep = !sweeps                          ? Sweep::None
                        : tone.HasFlag(ToneFlagLogSweep) ? Sweep::Logarithmic
                                                         : Sweep::Linear;
    const double peak = static_cast<double>(GetWaveformPeak(tone.waveform)) / GetWaveformPeak(ToneSine);
    const double* const starts[] = {tone.startLeftHz, tone.startRightHz};
    const double* const ends[] = {tone.endLeftHz, tone.endRightHz};
    for (std::size_t c = 0; c < static_cast<std::size_t>(channels); ++c)
        for (unsigned int i = 0; i < tone.GetToneCount(); ++i) {
            const int db = tone.HasFlag(ToneFlagVariableAmplitude) ? tone.amplitudeDb[i] : 0;
            if (db > LDB::Silence)
                components[c].push_back({HiresFrequencyPath(starts[c][i], ends[c][i], sweep, pass, rate),
                                         peak * ExactAmplitude(db)});
        }
}

void HiresToneParts::AddNoise(unsigned int code) {
    if (code == ToneWhiteNoise) {
        noise = Noise::White;
        noiseAmplitude = WhitePeak;
    } else if (code == TonePinkNoise) {
        noise = Noise::Pink;
        noiseAmplitude = PinkDensity * std::sqrt(rate / 44100.0);
    }
}

double HiresToneParts::FindPeak() const {
    double peak = noise == Noise::Pink ? noiseAmplitude * HiresPinkNoise::FindPeak(rate) : noiseAmplitude;
    for (const auto& channel : components) {
        double sum = 0;
        for (const auto& [path, amplitude] : channel)
            sum += amplitude * HiresOscillator::FindPeak(*waveform, path);
        peak = std::max(peak, sum);
    }
    return peak;
}

std::int64_t CountHiresFrames(double ms, int rate) {
    return RoundToBits(std::fmin(std::fmax(ms, 0), 1e12) * rate / 1000, 0);
}
