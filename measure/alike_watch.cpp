#include "measure/alike_watch.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double Spread = 6, LeastSpread = 1e-7; ///< of what is alike, the second beside the power itself

struct Powers {
    double of = 0, ofDifferences = 0;
};

Powers Measure(ChannelBlock samples, const std::vector<double>& window) {
    constexpr std::size_t Lanes = 4; // which the compiler adds up side by side
    double sums[2][Lanes] = {};
    for (std::size_t i = 0; i + Lanes <= window.size(); i += Lanes)
        for (std::size_t lane = 0; lane < Lanes; ++lane) {
            const double sample = samples[i + lane + 1], difference = sample - samples[i + lane];
            sums[0][lane] += window[i + lane] * sample * sample;
            sums[1][lane] += window[i + lane] * difference * difference;
        }
    return {sums[0][0] + sums[0][1] + sums[0][2] + sums[0][3],
            sums[1][0] + sums[1][1] + sums[1][2] + sums[1][3]};
}

} // namespace

AlikeWatch::AlikeWatch(std::size_t channelCount, std::size_t stretchFrames)
    : window(stretchFrames),
      channels(channelCount) {
    for (std::size_t i = 0; i < window.size(); ++i) {
        const double turns = (static_cast<double>(i) + 0.5) / static_cast<double>(window.size());
        window[i] = 1 - std::cos(2 * std::numbers::pi * turns);
    }
}

bool AlikeWatch::IsAlike(std::span<const ChannelBlock> stretches) {
    bool isAlike = true;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const Powers powers = Measure(stretches[i], window);
        isAlike = channels[i].power.Take(powers.of) && isAlike;
        isAlike = channels[i].differences.Take(powers.ofDifferences) && isAlike;
    }
    return isAlike;
}

bool AlikeWatch::Figure::Take(double value) {
    if (first.size() == Learnt)
        return std::abs(value - usual) <= most;
    first.push_back(value);
    if (first.size() == Learnt)
        Learn();
    return false;
}

void AlikeWatch::Figure::Learn() {
    std::vector<double> sorted = first;
    std::sort(sorted.begin(), sorted.end());
    usual = sorted[Learnt / 2];
    for (double& each : sorted)
        each = std::abs(each - usual);
    std::sort(sorted.begin(), sorted.end());
    most = Spread * sorted[3 * Learnt / 4] + LeastSpread * usual;
}
