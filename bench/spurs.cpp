#include "spurs.h"

#include "measure/kaiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <unsupported/Eigen/FFT>

namespace {

constexpr double Beta = 28;
constexpr double HalfWidth = 10; ///< of a line, in bins: where the first side lobe begins

/// Its sum is 1.
const std::vector<double>& GetWindow() {
    static const std::vector<double> window = [] {
        std::vector<double> values = MakeKaiserWindow(Beta, LineSpectrum::Frames);
        const double sum = std::accumulate(values.begin(), values.end(), 0.0);
        for (double& value : values)
            value /= sum;
        return values;
    }();
    return window;
}

} // namespace

LineSpectrum::LineSpectrum(const std::vector<double>& samples, int rate)
    : hzPerBin(static_cast<double>(rate) / Frames) {
    const std::vector<double>& window = GetWindow();
    std::vector<double> windowed(window);
    double power = 0;
    for (std::size_t i = 0; i < windowed.size(); ++i) {
        power += window[i] * window[i];
        windowed[i] *= samples[i];
    }
    binsPerNoise = power * Frames;
    std::vector<std::complex<double>> bins;
    Eigen::FFT<double>().fwd(bins, windowed);
    for (std::size_t i = 0; i <= Frames / 2; ++i)
        amplitudes.push_back(2 * std::abs(bins[i]));
}

std::vector<double> LineSpectrum::GetLinesBeside(std::span<const double> hz) const {
    std::vector<double> rest = amplitudes;
    for (const double each : hz) {
        const double at = each / hzPerBin, end = static_cast<double>(rest.size());
        const auto from = static_cast<std::ptrdiff_t>(std::clamp(at - HalfWidth, 0.0, end));
        const auto to = static_cast<std::ptrdiff_t>(std::clamp(at + HalfWidth + 1, 0.0, end));
        std::fill(rest.begin() + from, rest.begin() + to, 0);
    }
    return rest;
}

LineSpectrum::Line LineSpectrum::FindStrongestBeside(std::span<const double> hz) const {
    const std::vector<double> rest = GetLinesBeside(hz);
    const auto strongest = std::max_element(rest.begin(), rest.end());
    return {static_cast<double>(strongest - rest.begin()) * hzPerBin, *strongest};
}

double LineSpectrum::GetPowerBeside(std::span<const double> hz) const {
    const std::vector<double> rest = GetLinesBeside(hz);
    double sum = 0;
    for (std::size_t i = 0; i < rest.size(); ++i)
        if (const double at = static_cast<double>(i) * hzPerBin; at >= 20 && at <= 20000)
            sum += rest[i] * rest[i] / 2;
    return sum / binsPerNoise;
}

std::complex<double> MeasureLine(const std::vector<double>& samples, double hz, int rate, std::size_t from) {
    const std::vector<double>& window = GetWindow();
    std::complex<double> sum = 0;
    for (std::size_t i = 0; i < window.size(); ++i) {
        const double cycles = hz * static_cast<double>(from + i) / rate;
        sum +=
            samples[from + i] * std::polar(window[i], -2 * std::numbers::pi * (cycles - std::floor(cycles)));
    }
    return 2.0 * sum;
}
