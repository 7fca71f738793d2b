#include "measure/jump_finder.h"

#include "measure/tone_meter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

constexpr std::size_t MostLines = 4;
constexpr double LeastLine = 1e-3; ///< beside the strongest
constexpr double LoudPeak = 2; ///< beside its peak, which lines that are not predicted have again and again
constexpr double Loud = 8;     ///< beside the RMS of the noise
constexpr double LeastLoud = 1e-9;     ///< arithmetic alone is left of a tone without noise
constexpr double LongestChange = 0.25; ///< of a tone that goes on, in seconds
constexpr std::size_t Stretches = 32;  ///< of the beginning, of which the one in the middle tells the noise

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

JumpFinder::JumpFinder(int framesPerSecond) : rate(framesPerSecond) {}

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
    EndBurst();
    return hasChanged ? Jumps{} : jumps;
}

void JumpFinder::Learn() {
    hasLearnt = true;
    LearnLines();
    const std::vector<double> rest = RemoveLines(beginning);
    if (!lines.empty() && std::ssize(rest) > 2 * reach) {
        jumps.hasLooked = true;
        LearnNoise(rest);
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
    for (const ToneLine& each : figures.strongest) {
        if (lines.size() == MostLines || each.amplitude < LeastLine * figures.strongest[0].amplitude)
            break;
        const auto lag = static_cast<std::size_t>(std::max(1.0, std::round(rate / (4 * each.hz))));
        const double cycles = each.hz * static_cast<double>(lag) / rate;
        lines.push_back({lag, 2 * std::cos(2 * std::numbers::pi * cycles), std::vector<double>(2 * lag)});
        reach += static_cast<std::int64_t>(2 * lag);
    }
}

void JumpFinder::LearnNoise(const std::vector<double>& rest) {
    const std::size_t count = (rest.size() - static_cast<std::size_t>(reach)) / Stretches;
    std::vector<Left> all;
    for (std::size_t i = 0; i < Stretches; ++i)
        all.push_back(
            GetLeft(ChannelBlock(rest).subspan(static_cast<std::size_t>(reach) + i * count, count)));
    const auto middle = all.begin() + Stretches / 2;
    std::nth_element(all.begin(), middle, all.end(),
                     [](const Left& a, const Left& b) { return a.peak < b.peak; });
    mean = middle->mean;
    loud = std::max({LeastLoud, Loud * std::sqrt(middle->squares), LoudPeak * middle->peak});
}

/// What was before the sound is not known, so its first frames are not looked at.
void JumpFinder::LookAt(const std::vector<double>& rest) {
    for (const double each : rest) {
        if (std::abs(each - mean) > loud && frame >= reach) {
            if (burst < 0)
                burst = frame;
            last = frame;
        } else if (burst >= 0 && frame - last > reach) {
            EndBurst();
        }
        ++frame;
    }
}

void JumpFinder::EndBurst() {
    const std::int64_t length = burst < 0 ? 0 : last - burst;
    if (length > reach && static_cast<double>(length) > LongestChange * rate)
        hasChanged = true;
    else if (burst >= 0 && length <= reach) {
        if (jumps.count == 0)
            jumps.first = burst;
        ++jumps.count;
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
