#include "third_octaves.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <unsupported/Eigen/FFT>

namespace {

/// Of half the rate: the band at 20 kHz ends here at 44100 Hz.
constexpr double HighestPart = 0.98;

/// The integral of hz^slope.
double Integrate(double from, double to, int slope) {
    return slope == 0 ? to - from : std::log(to / from);
}

} // namespace

ThirdOctaves::ThirdOctaves(int framesPerSecond) : rate(framesPerSecond), densities(Frames / 2 + 1) {}

void ThirdOctaves::Add(const std::vector<double>& samples) {
    for (const double sample : samples) {
        waiting.push_back(sample);
        if (waiting.size() == Frames) {
            AddSpectrum();
            waiting.erase(waiting.begin(), waiting.begin() + Frames / 2);
        }
    }
}

void ThirdOctaves::AddSpectrum() {
    std::vector<double> windowed(waiting);
    for (std::size_t i = 0; i < windowed.size(); ++i) // von Hann's window
        windowed[i] *= 1 - std::cos(2 * std::numbers::pi * static_cast<double>(i) / Frames);
    std::vector<std::complex<double>> bins;
    Eigen::FFT<double>().fwd(bins, windowed);
    for (std::size_t i = 0; i < densities.size(); ++i)
        densities[i] += std::norm(bins[i]);
}

std::vector<ThirdOctaves::Band> ThirdOctaves::GetDeviations(int slope) const {
    std::vector<double> below{0}; // the power up to the lower edge of each bin
    for (const double density : densities)
        below.push_back(below.back() + density);
    const double binsPerHz = static_cast<double>(Frames) / rate;
    const auto getBelow = [&](double hz) {
        const double at = hz * binsPerHz + 0.5, whole = std::floor(at);
        return std::lerp(below[static_cast<std::size_t>(whole)], below[static_cast<std::size_t>(whole) + 1],
                         at - whole);
    };
    std::vector<Band> bands;
    double mean = 0;
    for (int third = -17; third <= 13; ++third) {
        const double middle = 1000 * std::pow(10, third / 10.0), edge = std::pow(10, 0.05);
        const double from = middle / edge, to = std::min(middle * edge, rate * HighestPart / 2);
        bands.push_back({middle, (getBelow(to) - getBelow(from)) / Integrate(from, to, slope)});
        mean += bands.back().deviation;
    }
    for (Band& band : bands)
        band.deviation = 10 * std::log10(band.deviation * static_cast<double>(bands.size()) / mean);
    return bands;
}
