#include "measure/true_peak.h"

#include "measure/kaiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double Beta = 5;
constexpr double MostGain = 2.6; ///< of the filters: the sum of their magnitudes

double GetSinc(double x) {
    return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
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
        const ChannelBlock part = samples.first(std::min(samples.size(), Taps - 1 + Chunk - pending.size()));
        std::transform(part.begin(), part.end(), std::back_inserter(pending),
                       [](double sample) { return static_cast<float>(sample); });
        for (const double sample : part)
            peak = std::max(peak, std::abs(sample));
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
    constexpr std::size_t Lanes = 16; // which the compiler keeps side by side
    float loudest = 0, found[Lanes] = {};
    for (const float sample : samples)
        loudest = std::max(loudest, std::abs(sample));
    if (loudest * MostGain <= peak)
        return;
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
