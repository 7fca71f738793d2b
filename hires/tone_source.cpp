#include "hires/tone_source.h"

#include "hires/exact_math.h"
#include "hires/fade.h"
#include "hires/oscillator.h"
#include "hires/pink_noise.h"
#include "hires/tone_parts.h"
#include "hires/white_noise.h"
#include "sound/kernels/kernels.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <optional>

namespace {

using Block = std::array<std::int32_t, HiresBlockFrames>;

/// No sum should be beyond full scale.
void RoundToSamples(HiresSums& sums, Block& out) {
    constexpr int bits = HiresSumBits - 31;
    constexpr std::int64_t most = std::int64_t{INT32_MAX} << bits;
    if (Kernels().roundSums(out.data(), sums.data(), HiresBlockFrames, bits))
        return;
    for (std::int64_t& sum : sums)
        sum = std::clamp(sum, -most, most);
    Kernels().roundSums(out.data(), sums.data(), HiresBlockFrames, bits);
}

/// Components and noise, added up block by block.
class HiresToneSource : public HiresSource {
public:
    HiresToneSource(HiresToneParts&& toneParts, const HiresSettings& settings);

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return parts.length; }

private:
    void MakeBlock();
    void MakeChannel(std::size_t channel);

    const HiresToneParts parts;
    const HiresFade fade;
    std::array<std::vector<std::unique_ptr<HiresOscillator>>, 2> oscillators;
    std::optional<HiresWhiteNoise> white;
    std::optional<HiresPinkNoise> pink;
    std::int64_t made = 0;       ///< frames, of whole blocks
    std::array<Block, 2> blocks; ///< one for each channel
    int left = 0;                ///< frames at their ends
};

HiresToneSource::HiresToneSource(HiresToneParts&& toneParts, const HiresSettings& settings)
    : HiresSource(toneParts.rate, toneParts.channels),
      parts(std::move(toneParts)),
      fade(CountHiresFrames(settings.fadeInMs, rate), CountHiresFrames(settings.fadeOutMs, rate),
           parts.length) {
    const double level = ExactAmplitude(settings.level);
    for (std::size_t c = 0; c < oscillators.size(); ++c)
        for (const auto& [path, amplitude] : parts.components[c])
            oscillators[c].push_back(
                HiresOscillator::Make(*parts.waveform, path, level * amplitude, *parts.tables));
    if (parts.noise == HiresToneParts::Noise::White)
        white.emplace(level * parts.noiseAmplitude, settings.seed);
    else if (parts.noise == HiresToneParts::Noise::Pink)
        pink.emplace(rate, level * parts.noiseAmplitude, settings.seed);
}

void HiresToneSource::Read(std::int32_t* out, int frames) {
    while (frames > 0) {
        if (left == 0)
            MakeBlock();
        const int count = std::min(frames, left);
        const std::int32_t* const from[] = {blocks[0].end() - left, blocks[1].end() - left};
        if (channels == 1)
            std::copy_n(from[0], count, out);
        else
            for (std::ptrdiff_t i = 0; i < count; ++i) {
                out[2 * i] = from[0][i];
                out[2 * i + 1] = from[1][i];
            }
        out += std::ptrdiff_t{count} * channels;
        left -= count;
        frames -= count;
    }
}

void HiresToneSource::MakeBlock() {
    const std::int64_t toEnd = std::clamp<std::int64_t>(parts.length - made, 0, HiresBlockFrames);
    for (std::size_t c = 0; c < static_cast<std::size_t>(channels); ++c) {
        if (toEnd > 0)
            MakeChannel(c);
        std::fill(blocks[c].begin() + toEnd, blocks[c].end(), 0);
    }
    made += HiresBlockFrames;
    left = HiresBlockFrames;
}

void HiresToneSource::MakeChannel(std::size_t channel) {
    HiresSums sums{};
    for (const auto& each : oscillators[channel])
        each->Add(sums);
    if (white)
        white->Add(sums);
    if (pink)
        pink->Add(sums);
    fade.Apply(made, sums);
    RoundToSamples(sums, blocks[channel]);
}

std::string DescribeLevel(double db) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", db);
    return text;
}

/// In millionths of a dB, so that what is full scale but for rounding is full scale.
double FindPeakDb(const HiresToneParts& parts, double level) {
    const double factor = parts.FindPeak();
    if (factor <= 0)
        return -std::numeric_limits<double>::infinity();
    return std::floor((ExactLog(factor) * (20 / std::numbers::ln10) + level) * 1e6 + 0.5) / 1e6;
}

} // namespace

HiresToneFacts MeasureHiresTone(const SonvireData& tone, const HiresSettings& settings) {
    const HiresToneParts parts(tone, settings.rate);
    return {parts.channels, parts.length, FindPeakDb(parts, settings.level)};
}

LFailure ExplainHiresExcess(double level, double peak) {
    return "would exceed full scale by " + DescribeLevel(std::ceil(peak * 100) / 100) + " dB; a level of " +
           DescribeLevel(std::floor((level - peak) * 100) / 100) + " dBFS fits";
}

HiresTone OpenHiresTone(const SonvireData& tone, const HiresSettings& settings) {
    HiresToneParts parts(tone, settings.rate);
    const double peak = FindPeakDb(parts, settings.level), excess = std::fmax(peak, 0);
    if (excess > 0 && !settings.fit)
        return {.source = nullptr, .failure = ExplainHiresExcess(settings.level, peak)};
    HiresSettings fitting = settings;
    fitting.level -= excess;
    return {.source = std::make_unique<HiresToneSource>(std::move(parts), fitting),
            .peak = peak - excess,
            .loweredDb = excess};
}
