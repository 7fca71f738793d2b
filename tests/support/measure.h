#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

/// The samples of a 16-bit mono WAVE file with a 46-byte header, +-1 being full scale.
inline std::vector<double> SamplesOf(const std::string& file) {
    std::vector<double> samples;
    for (std::size_t i = 46; i + 1 < file.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(file[i]) | file[i + 1] << 8) /
                          32768.0);
    return samples;
}

inline int CountSignChanges(const std::vector<double>& samples) {
    int count = 0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        count += (samples[i] < 0) != (samples[i - 1] < 0) ? 1 : 0;
    return count;
}

struct SineFit {
    double amplitude, residualRms;
};

/// The sine of this frequency that comes closest to the samples, by its projection on sine and cosine.
inline SineFit FitSine(const std::vector<double>& samples, double rate, double hz) {
    double ss = 0, cc = 0, sc = 0, sy = 0, cy = 0, yy = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double angle = 2 * std::numbers::pi * hz * static_cast<double>(i) / rate;
        const double s = std::sin(angle), c = std::cos(angle), y = samples[i];
        ss += s * s, cc += c * c, sc += s * c, sy += s * y, cy += c * y, yy += y * y;
    }
    const double det = ss * cc - sc * sc;
    const double a = (sy * cc - cy * sc) / det, b = (cy * ss - sy * sc) / det;
    const double residual = yy - a * sy - b * cy;
    return {std::hypot(a, b), std::sqrt(std::fmax(0, residual) / static_cast<double>(samples.size()))};
}
