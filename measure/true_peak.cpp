#include "measure/true_peak.h"

#include "measure/kaiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double Beta = 5;
constexpr double MostGain = 2.6;  ///< of the filters: the sum of their magnitudes
constexpr std::size_t Lanes = 16; ///< which the compiler keeps side by side

double GetSinc(double x) {
    return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

float GetLoudest(const std::vector<float>& samples) {
    float found[Lanes] = {};
    const auto take = [&](std::size_t i, std::size_t lane) {
        found[lane] = std::max(found[lane], std::abs(samples[i]));
    };
    std::size_t i = 0;
    for (; i + Lanes <= samples.size(); i += Lanes)
        for (std::size_t lane = 0; lane < Lanes; ++lane)
            take(i + lane, lane);
    for (; i < samples.size(); ++i)
        take(i, 0);
    return *std::max_element(found, found + Lanes);
}

/// The values for samples 0.25, 1.25, ... (or 0.75, ...) away, on one side and on the other, which add up
/// to 1.
std::vector<double> MakeFilter(int taps, double fraction) {
    const int before = taps / 2 - 1;
    std::vector<double> filter;
    double sum = 0;
    for (int i = 0; i < taps; ++i) {
        const double away = i - before - fraction;
        filter.push_back(GetSinc(away) * GetKaiser(Beta, 2 * away / taps));
        sum += filter.back();
    }
    for (double& value : filter)
        value /= sum;
    return filter;
}

} // namespace

TruePeakMeter::TruePeakMeter() : pending(Taps - 1) {
    const std::vector<double> half = MakeFilter(Taps, 0.5), quarter = MakeFilter(Taps, 0.25);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const std::size_t before = Taps / 2 - 1 - i, behind = Taps / 2 + i;
        pairs[i] = {static_cast<float>(half[before]),
                    static_cast<float>((quarter[before] + quarter[behind]) / 2),
                    static_cast<float>((quarter[before] - quarter[behind]) / 2)};
    }
}

void TruePeakMeter::Add(ChannelBlock samples) {
    while (!samples.empty()) {
        const std::size_t before = pending.size();
        const ChannelBlock part = samples.first(std::min(samples.size(), Taps - 1 + Chunk - before));
        pending.resize(before + part.size());
        std::transform(part.begin(), part.end(), pending.data() + before,
                       [](double sample) { return static_cast<float>(sample); });
        samples = samples.subspan(part.size());
        if (pending.size() == Taps - 1 + Chunk) {
            LookBetween(pending);
            pending.erase(pending.begin(), pending.begin() + Chunk);
        }
    }
}

double TruePeakMeter::Get() const {
    TruePeakMeter finished = *this;
    finished.pending.resize(Taps - 1 + Chunk);
    finished.LookBetween(finished.pending);
    return finished.peak;
}

void TruePeakMeter::LookBetween(const std::vector<float>& samples) {
    const float loudest = GetLoudest(samples);
    peak = std::max(peak, static_cast<double>(loudest));
    if (loudest * MostGain <= peak)
        return;
    float found[Lanes] = {};
    for (std::size_t at = 0; at < Chunk; at += Lanes) {
        float middle[Lanes] = {}, evenly[Lanes] = {}, oddly[Lanes] = {};
        const float* before = &samples[at + Taps / 2 - 1];
        const float* behind = before + 1;
        for (const Pair& pair : pairs) {
            for (std::size_t i = 0; i < Lanes; ++i) {
                const float sum = before[i] + behind[i], difference = before[i] - behind[i];
                middle[i] += pair.middle * sum;
                evenly[i] += pair.evenly * sum;
                oddly[i] += pair.oddly * difference;
            }
            --before;
            ++behind;
        }
        for (std::size_t i = 0; i < Lanes; ++i)
            found[i] = std::max({found[i], std::abs(middle[i]), std::abs(evenly[i]) + std::abs(oddly[i])});
    }
    peak = std::max(peak, static_cast<double>(*std::max_element(found, found + Lanes)));
}
