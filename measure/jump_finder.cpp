#include "measure/jump_finder.h"

#include "measure/tone_meter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

constexpr std::size_t MostLines = 8;
constexpr double LeastLine = 1e-3; ///< beside the strongest
constexpr double LoudPeak = 2; ///< beside its peak, which lines that are not predicted have again and again
constexpr double Loud = 8;     ///< beside the RMS of the noise
constexpr double LeastLoud = 1e-9;      ///< arithmetic alone is left of a tone without noise
constexpr double StepsLoud = 3;         ///< by which samples may be off
constexpr double LongestChange = 0.25;  ///< of a tone that goes on, in seconds
constexpr double RingingSeconds = 3e-3; ///< of a converter at the ends of a sound
constexpr double WrapTolerance = 0.1;
constexpr std::size_t Stretches = 32; ///< of the beginning
constexpr std::size_t NoiseRank =
    24; ///< of the one that tells the noise, so that what is rare counts as well

/// What is left in a stretch.
struct Left {
    double mean = 0, squares = 0, peak = 0; ///< the latter two about the mean
};

Left GetLeft(ChannelBlock samples) {
    const auto count = static_cast<double>(samples.size());
    Left left{.mean = std::accumulate(samples.begin(), samples.end(), 0.0) / count};
    for (const double each : samples) {
        left.squares += (each - left.mean) * (each - left.mean) / count;
        left.peak = std::max(left.peak, std::abs(each - left.mean));
    }
    return left;
}

} // namespace

JumpFinder::JumpFinder(int framesPerSecond, int bitsOfSample) : rate(framesPerSecond), bits(bitsOfSample) {}

void JumpFinder::Add(ChannelBlock samples) {
    const std::size_t enough = GetSegmentFrames(rate);
    if (!hasLearnt) {
        const ChannelBlock part = samples.first(std::min(samples.size(), enough - beginning.size()));
        beginning.insert(beginning.end(), part.begin(), part.end());
        samples = samples.subspan(part.size());
        if (beginning.size() == enough)
            Learn();
    }
    if (hasLearnt && jumps.hasLooked)
        LookAt(RemoveLines(samples));
}

Jumps JumpFinder::Finish() {
    if (!hasLearnt)
        Learn();
    if (frame - burst > reach)
        EndBurst();
    return hasChanged ? Jumps{} : jumps;
}

void JumpFinder::Learn() {
    hasLearnt = true;
    LearnLines();
    const std::vector<double> rest = RemoveLines(beginning);
    if (!lines.empty() && std::ssize(rest) > 2 * reach) {
        LearnNoise(rest);
        jumps.hasLooked = loud < amplitude;
        if (jumps.hasLooked)
            LookAt(rest);
    }
    beginning = {};
}

void JumpFinder::LearnLines() {
    MeanSpectrum spectrum(rate, 1);
    const ChannelBlock all = beginning;
    spectrum.Add({&all, 1});
    const ToneFigures figures = MeasureTones(spectrum.Finish(), 0);
    if (figures.variation > MostVariation || (figures.isSteady && figures.tones.empty()))
        return;
    amplitude = figures.strongest[0].amplitude;
    for (const ToneLine& each : figures.strongest) {
        if (lines.size() == MostLines || each.amplitude < LeastLine * figures.strongest[0].amplitude)
            break;
        const auto lag = static_cast<std::size_t>(std::max(1.0, std::round(rate / (4 * each.hz))));
        const double cycles = each.hz * static_cast<double>(lag) / rate;
        lines.push_back({lag, 2 * std::cos(2 * std::numbers::pi * cycles), std::vector<double>(2 * lag)});
        history += static_cast<std::int64_t>(2 * lag);
    }
    reach = std::max(history, static_cast<std::int64_t>(RingingSeconds * rate));
}

void JumpFinder::LearnNoise(const std::vector<double>& rest) {
    const std::size_t count = (rest.size() - static_cast<std::size_t>(reach)) / Stretches;
    std::vector<Left> all;
    for (std::size_t i = 0; i < Stretches; ++i)
        all.push_back(
            GetLeft(ChannelBlock(rest).subspan(static_cast<std::size_t>(reach) + i * count, count)));
    const auto noisy = all.begin() + NoiseRank;
    std::nth_element(all.begin(), noisy, all.end(),
                     [](const Left& a, const Left& b) { return a.peak < b.peak; });
    mean = noisy->mean;
    loud = std::max({GetLeastLoud(), Loud * std::sqrt(noisy->squares), LoudPeak * noisy->peak});
}

double JumpFinder::GetLeastLoud() const {
    double steps = StepsLoud;
    for (const Prediction& line : lines)
        steps *= std::sqrt(2 + line.factor * line.factor);
    return std::max(LeastLoud, bits == 0 ? 0 : std::ldexp(steps, 1 - bits));
}

/// What was before the sound is not known. What is seen soon after may be left of what was not.
void JumpFinder::LookAt(const std::vector<double>& rest) {
    for (const double each : rest) {
        if (std::abs(each - mean) > loud && frame >= history) {
            if (burst < 0)
                StartBurst(each);
            last = frame;
        } else if (burst >= 0 && frame - last > reach) {
            EndBurst();
        }
        ++frame;
    }
}

void JumpFinder::StartBurst(double sample) {
    burst = frame;
    startsWrapped = std::abs(std::abs(sample - mean) - 2) <= std::max(loud, WrapTolerance);
}

void JumpFinder::EndBurst() {
    const std::int64_t length = burst < 0 ? 0 : last - burst;
    if (length > reach && static_cast<double>(length) > LongestChange * rate)
        hasChanged = true;
    else if (burst >= history + reach && length <= reach) {
        if (jumps.count == 0)
            jumps.first = burst;
        ++jumps.count;
        if (startsWrapped && jumps.wraps++ == 0)
            jumps.firstWrap = burst;
    }
    burst = -1;
}

std::vector<double> JumpFinder::RemoveLines(ChannelBlock samples) {
    std::vector<double> rest(samples.begin(), samples.end());
    for (Prediction& line : lines)
        line.Remove(rest);
    return rest;
}

void JumpFinder::Prediction::Remove(std::vector<double>& samples) {
    past.insert(past.end(), samples.begin(), samples.end());
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = past[i + 2 * lag] - factor * past[i + lag] + past[i];
    past.erase(past.begin(), past.end() - static_cast<std::ptrdiff_t>(2 * lag));
}
