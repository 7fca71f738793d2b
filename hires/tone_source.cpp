#include "hires/tone_source.h"

#include "hires/exact_math.h"
#include "hires/fade.h"
#include "hires/noise.h"
#include "hires/oscillator.h"
#include "sound/level.h"
#include "tone/waveforms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <optional>
#include <vector>

namespace {

constexpr int SumBits = 52, SampleBits = 31, FadeBits = 30;
constexpr int BlockFrames = 512;

/// What noise of 0 dB is beside the peak of a sine of 0 dB, so that it is as loud as in the standard quality:
/// there, white noise has twice that peak, and pink noise at 1 kHz the density of white noise of 1.08 times
/// the peak at 44100 Hz.
constexpr double WhitePeak = 2, PinkDensity = 1.08;
/// Pink noise beside the white noise that it is made of stays below this, which is 6.5 times its root mean
/// square.
constexpr double PinkPeak = 1.45;

std::int64_t ToFrames(double ms, int rate) {
    return static_cast<std::int64_t>(std::fmin(std::fmax(ms, 0), 1e12) * rate / 1000 + 0.5);
}

/// Components and noise, added up.
class HiresToneSource : public HiresSource {
public:
    HiresToneSource(const SonvireData& tone, const HiresSettings& settings)
        : HiresSource(settings.rate, tone.HasComponents() && tone.HasFlag(ToneFlagStereo) ? 2 : 1),
          pass(tone.HasFlag(ToneFlagDuration) ? ToFrames(tone.durationMs, settings.rate) : Endless),
          length(tone.repeat != 0 || pass == 0 ? Endless : pass),
          fade(ToFrames(settings.fadeInMs, settings.rate), ToFrames(settings.fadeOutMs, settings.rate),
               length),
          amplitude(ExactAmplitude(settings.level)) {
        if (tone.HasComponents())
            AddComponents(tone);
        else
            AddNoise(tone, settings.seed);
    }

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return length; }

    /// The most that it reaches, full scale being 1.
    double GetPeak() const;

private:
    void AddComponents(const SonvireData& tone);
    void AddNoise(const SonvireData& tone, std::uint64_t seed);
    void ReadBlock(std::int32_t* out, int frames);
    void RestartSweeps();

    const std::int64_t pass; ///< how long a sweep, and a pass of a loop, takes
    const std::int64_t length;
    const HiresFade fade;
    const double amplitude; ///< of a sine's peak at 0 dB, full scale being 1
    std::array<std::vector<HiresOscillator>, 2> oscillators;
    std::optional<HiresNoise> noise;
    double noisePeak = 0;
    std::int64_t position = 0;
};

void HiresToneSource::AddComponents(const SonvireData& tone) {
    using Sweep = HiresFrequencyPath::Sweep;
    const HiresWaveform* waveform = HiresWaveform::Find(tone.waveform);
    if (!waveform)
        return;
    const bool sweeps = tone.HasFlag(ToneFlagSweep) && pass != Endless && pass > 0;
    const Sweep sweep = !sweeps                          ? Sweep::None
                        : tone.HasFlag(ToneFlagLogSweep) ? Sweep::Logarithmic
                                                         : Sweep::Linear;
    const double peak = amplitude * GetWaveformPeak(tone.waveform) / GetWaveformPeak(ToneSine);
    const double* const starts[] = {tone.startLeftHz, tone.startRightHz};
    const double* const ends[] = {tone.endLeftHz, tone.endRightHz};
    for (std::size_t c = 0; c < static_cast<std::size_t>(channels); ++c) {
        for (unsigned int i = 0; i < tone.GetToneCount(); ++i) {
            const int db = tone.HasFlag(ToneFlagVariableAmplitude) ? tone.amplitudeDb[i] : 0;
            if (db > LDB::Silence)
                oscillators[c].emplace_back(*waveform,
                                            HiresFrequencyPath(starts[c][i], ends[c][i], sweep, pass, rate),
                                            peak * ExactAmplitude(db));
        }
    }
}

void HiresToneSource::AddNoise(const SonvireData& tone, std::uint64_t seed) {
    if (tone.waveform == ToneWhiteNoise) {
        noisePeak = amplitude * WhitePeak;
        noise.emplace(HiresColour::White, rate, noisePeak, seed);
    } else if (tone.waveform == TonePinkNoise) {
        const double white = amplitude * PinkDensity * std::sqrt(rate / 44100.0);
        noisePeak = white * PinkPeak;
        noise.emplace(HiresColour::Pink, rate, white, seed);
    }
}

double HiresToneSource::GetPeak() const {
    double peak = noisePeak;
    for (const auto& channel : oscillators) {
        double sum = 0;
        for (const HiresOscillator& each : channel)
            sum += each.GetPeak();
        peak = std::max(peak, sum);
    }
    return peak;
}

void HiresToneSource::Read(std::int32_t* out, int frames) {
    while (frames > 0) {
        const std::int64_t toSeam = pass == Endless || pass == 0 ? BlockFrames : pass - position % pass;
        const int count = static_cast<int>(std::min<std::int64_t>({frames, BlockFrames, toSeam}));
        ReadBlock(out, count);
        position += count;
        if (count == toSeam && length == Endless)
            RestartSweeps();
        out += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

void HiresToneSource::ReadBlock(std::int32_t* out, int frames) {
    std::array<std::int64_t, 2 * BlockFrames> sums{};
    if (position < length) {
        for (int c = 0; c < channels; ++c)
            for (HiresOscillator& each : oscillators[static_cast<std::size_t>(c)])
                each.Add(&sums[static_cast<std::size_t>(c)], channels, frames);
        if (noise)
            noise->Add(sums.data(), channels, frames);
    }
    constexpr std::int64_t half = std::int64_t{1} << (SumBits - SampleBits - 1), most = INT32_MAX;
    const bool flat = fade.IsFlat(position, frames);
    for (int i = 0; i < frames * channels; ++i) {
        std::int64_t sum = sums[static_cast<std::size_t>(i)];
        if (!flat)
            sum = static_cast<std::int64_t>(
                static_cast<__int128>(sum) * fade.GetGain(position + i / channels) >> FadeBits);
        out[i] = static_cast<std::int32_t>(std::clamp((sum + half) >> (SumBits - SampleBits), -most, most));
    }
}

void HiresToneSource::RestartSweeps() {
    for (auto& channel : oscillators)
        for (HiresOscillator& each : channel)
            each.RestartSweep();
}

/// In millionths of a dB, so that what is full scale but for rounding is full scale.
double ToDb(double factor) {
    if (factor <= 0)
        return -std::numeric_limits<double>::infinity();
    return std::floor(ExactLog(factor) * (20 / std::numbers::ln10) * 1e6 + 0.5) / 1e6;
}

std::string DescribeLevel(double db) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", db);
    return text;
}

} // namespace

double MeasureHiresPeak(const SonvireData& tone, const HiresSettings& settings) {
    return ToDb(HiresToneSource(tone, settings).GetPeak());
}

LFailure ExplainHiresExcess(double level, double peak) {
    return "would exceed full scale by " + DescribeLevel(std::ceil(peak * 100) / 100) + " dB; a level of " +
           DescribeLevel(std::floor((level - peak) * 100) / 100) + " dBFS fits";
}

HiresTone OpenHiresTone(const SonvireData& tone, const HiresSettings& settings) {
    auto source = std::make_unique<HiresToneSource>(tone, settings);
    const double peak = ToDb(source->GetPeak());
    if (peak <= 0)
        return {.source = std::move(source), .peak = peak};
    if (!settings.fit)
        return {.source = nullptr, .failure = ExplainHiresExcess(settings.level, peak)};
    HiresSettings fitting = settings;
    fitting.level -= peak;
    return {.source = std::make_unique<HiresToneSource>(tone, fitting), .peak = 0, .loweredDb = peak};
}
