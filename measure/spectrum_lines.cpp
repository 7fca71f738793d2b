#include "measure/spectrum_lines.h"

#include "measure/kaiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace {

constexpr double AboveFloor = 40, BelowStrongest = 1e-18; ///< powers
constexpr std::size_t Reach = Spectrum::LineReach;

/// The bins beside a line, on either side.
struct Surroundings {
    std::span<const double> below, above;

    Surroundings(std::span<const double> power, std::size_t bin) {
        constexpr std::size_t Width = 32;
        const std::size_t first = std::max(Reach, bin - std::min(bin, Reach + Width));
        below = power.subspan(first, std::max(first, bin - Reach) - first);
        above = power.subspan(std::min(power.size(), bin + Reach + 1));
        above = above.first(std::min(above.size(), Width));
    }
};

/// What they have beside a line on average, told from their median, which other lines don't move.
double GetFloor(const Surroundings& around) {
    std::vector<double> all(around.below.begin(), around.below.end());
    all.insert(all.end(), around.above.begin(), around.above.end());
    if (all.empty())
        return 0;
    const auto middle = all.begin() + std::ssize(all) / 2;
    std::nth_element(all.begin(), middle, all.end());
    return *middle / std::numbers::ln2;
}

/// Whether their median is that far below, without looking for it.
bool StandsOut(double power, const Surroundings& around) {
    const auto isBelow = [limit = power / AboveFloor * std::numbers::ln2](double each) {
        return each < limit;
    };
    const auto count = std::count_if(around.below.begin(), around.below.end(), isBelow) +
                       std::count_if(around.above.begin(), around.above.end(), isBelow);
    return 2 * count >= std::ssize(around.below) + std::ssize(around.above);
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
    for (std::size_t bin = Reach + 1; bin + Reach < power.size(); ++bin)
        if (power[bin] > least && IsPeak(power, bin) && StandsOut(power[bin], {power, bin}))
            peaks.push_back(bin);
    std::sort(peaks.begin(), peaks.end(), [&](std::size_t a, std::size_t b) { return power[a] > power[b]; });
    return peaks;
}

/// As its phase moves on, which is right to the last digits but for whole cycles: those that bring it closest
/// to `near`.
double GetMovingHz(const Spectrum& spectrum, const Spectrum::Channel& channel, std::size_t bin, double near) {
    const double hops = static_cast<double>(spectrum.rate) / static_cast<double>(spectrum.hopFrames);
    const double cycles = std::arg(channel.advance[bin]) / (2 * std::numbers::pi);
    return (std::round(near / hops - cycles) + cycles) * hops;
}

/// A parabola through the logarithms is right to a hundredth of a bin, which tells the whole cycles. A tone
/// that comes and goes is moved away from a bin by as much as it is away from it: two bins tell from where.
double GetHz(const Spectrum& spectrum, const Spectrum::Channel& channel, std::size_t bin) {
    const double before = std::log(channel.power[bin - 1]), at = std::log(channel.power[bin]),
                 behind = std::log(channel.power[bin + 1]);
    const double away = (before - behind) / (2 * (before - 2 * at + behind));
    const double near = (static_cast<double>(bin) + away) * spectrum.GetHzPerBin();
    const std::size_t other = away < 0 ? bin - 1 : bin + 1;
    const double here = GetMovingHz(spectrum, channel, bin, near),
                 there = GetMovingHz(spectrum, channel, other, near);
    const double binHz = static_cast<double>(bin) * spectrum.GetHzPerBin();
    const double moved =
        (here - there) / ((static_cast<double>(other) - static_cast<double>(bin)) * spectrum.GetHzPerBin());
    return (here + moved * binHz) / (1 + moved);
}

/// Noise of this power in the bin, six times which is what chance may make of it in a few segments.
double GetVariation(const Spectrum::Channel& channel, std::size_t bin, double noise) {
    const double power = channel.power[bin];
    const double ofPower = channel.squaredPower[bin] / (power * power) - 1 - 6 * noise / power;
    return std::sqrt(std::max(0.0, ofPower)) / 2;
}

double GetWindowPower(double bins) {
    const double response = GetKaiserResponse(Spectrum::WindowBeta, bins);
    return response * response;
}

/// Of a line that is so far away from the bin of its peak, what the bin says that all of its bins have.
double GetWholePower(double ofPeak, double away) {
    double all = 0;
    for (int i = -static_cast<int>(Reach); i <= static_cast<int>(Reach); ++i)
        all += GetWindowPower(i - away);
    return ofPeak * all / GetWindowPower(away);
}

/// What is in the bins where lines can't be told, but for what a DC of this power leaves there.
double GetHidden(std::span<const double> power) {
    const std::size_t few = std::min(power.size(), Reach + 1);
    double hidden = 0;
    for (std::size_t i = 1; i < few; ++i) {
        const double ofDc = 2 * power[0] * GetWindowPower(static_cast<double>(i)) / GetWindowPower(0);
        hidden += std::max(0.0, power[i] - 2 * ofDc) + (power.size() > 2 * few ? power[power.size() - i] : 0);
    }
    return hidden;
}

} // namespace

SpectrumLines::SpectrumLines(const Spectrum& spectrum, std::size_t channel) {
    const Spectrum::Channel& bins = spectrum.channels[channel];
    rest = bins.power;
    hidden = GetHidden(rest);
    std::fill_n(rest.begin(), std::min(rest.size(), Reach + 1), Taken);
    for (const std::size_t peak : FindPeaks(bins.power)) {
        if (rest[peak] < 0)
            continue;
        const double floor = GetFloor({bins.power, peak}), hz = GetHz(spectrum, bins, peak);
        double power = 0;
        for (std::size_t i = peak - Reach; i <= peak + Reach; ++i) {
            if (rest[i] < 0)
                continue;
            power += rest[i] - floor;
            rest[i] = Taken;
        }
        if (peak <= 2 * Reach) // some of its bins are those of DC
            power = GetWholePower(bins.power[peak] - floor,
                                  hz / spectrum.GetHzPerBin() - static_cast<double>(peak));
        lines.push_back({peak, hz, power, GetVariation(bins, peak, floor)});
    }
}
