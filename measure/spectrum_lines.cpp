#include "measure/spectrum_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace {

constexpr double AboveFloor = 40, BelowStrongest = 1e-18; ///< powers
constexpr std::size_t Reach = Spectrum::LineReach;

/// Of a bin, what its surroundings have beside a line there: their mean, told from their median, which other
/// lines don't move.
double GetFloor(std::span<const double> power, std::size_t bin) {
    constexpr std::size_t Width = 32;
    std::vector<double> around;
    for (std::size_t i = Reach + 1; i <= Reach + Width; ++i) {
        if (bin >= i + Reach)
            around.push_back(power[bin - i]);
        if (bin + i < power.size())
            around.push_back(power[bin + i]);
    }
    if (around.empty())
        return 0;
    const auto middle = around.begin() + std::ssize(around) / 2;
    std::nth_element(around.begin(), middle, around.end());
    return *middle / std::numbers::ln2;
}

bool IsPeak(std::span<const double> power, std::size_t bin) {
    return power[bin] > power[bin - 1] && power[bin] >= power[bin + 1] && power[bin] > power[bin - 2] &&
           power[bin] >= power[bin + 2];
}

std::vector<std::size_t> FindPeaks(std::span<const double> power) {
    std::vector<std::size_t> peaks;
    if (power.size() <= 2 * Reach)
        return peaks;
    const double least = *std::max_element(power.begin() + Reach + 1, power.end()) * BelowStrongest;
    for (std::size_t bin = Reach + 1; bin + 2 < power.size(); ++bin)
        if (power[bin] > least && IsPeak(power, bin) && power[bin] > AboveFloor * GetFloor(power, bin))
            peaks.push_back(bin);
    std::sort(peaks.begin(), peaks.end(), [&](std::size_t a, std::size_t b) { return power[a] > power[b]; });
    return peaks;
}

/// A parabola through the logarithms is right to a hundredth of a bin, the advance to the last digits: but
/// for whole cycles, which the parabola knows.
double GetHz(const Spectrum& spectrum, const Spectrum::Channel& channel, std::size_t bin) {
    const double before = std::log(channel.power[bin - 1]), at = std::log(channel.power[bin]),
                 behind = std::log(channel.power[bin + 1]);
    const double bins = static_cast<double>(bin) + (before - behind) / (2 * (before - 2 * at + behind));
    const double hops = static_cast<double>(spectrum.hopFrames) / static_cast<double>(spectrum.segmentFrames);
    const double cycles = std::arg(channel.advance[bin]) / (2 * std::numbers::pi);
    return (std::round(bins * hops - cycles) + cycles) / hops * spectrum.GetHzPerBin();
}

} // namespace

SpectrumLines::SpectrumLines(const Spectrum& spectrum, std::size_t channel) {
    const Spectrum::Channel& bins = spectrum.channels[channel];
    rest = bins.power;
    std::fill_n(rest.begin(), std::min(rest.size(), Reach + 1), Taken);
    for (const std::size_t peak : FindPeaks(bins.power)) {
        if (rest[peak] < 0)
            continue;
        const double floor = GetFloor(bins.power, peak);
        double power = 0;
        for (std::size_t i = peak - Reach; i <= std::min(peak + Reach, rest.size() - 1); ++i) {
            if (rest[i] < 0)
                continue;
            power += rest[i] - floor;
            rest[i] = Taken;
        }
        lines.push_back({peak, GetHz(spectrum, bins, peak), power});
    }
}
