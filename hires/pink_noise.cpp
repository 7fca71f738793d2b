#include "hires/pink_noise.h"

#include "hires/exact_math.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr int LowestPoleHz = 2;

/// Half of a symmetrical filter, from the middle on: what one-pole sections make too loud towards half the
/// rate, the same at any rate. By least squares up to 0.985 of it.
constexpr double Correction[] = {0.93280165, 0.04091158, -0.00991911, 0.00431138, -0.00234781, 0.00153};

} // namespace

/// A ladder of poles an octave apart with a zero between each two falls by 3 dB an octave. Taken apart into
/// sections side by side, each pole has the gain that it would have in the ladder.
HiresPinkNoise::Sections::Sections(int rate) {
    std::vector<double> all, zeros;
    for (int hz = LowestPoleHz; hz < rate; hz *= 2) {
        all.push_back(ExactExp(-2 * std::numbers::pi * hz / rate));
        zeros.push_back(ExactExp(-2 * std::numbers::pi * hz * std::numbers::sqrt2 / rate));
    }
    // The ladder's gain at its top is about 1, and it rises by 3 dB with every octave below.
    const double level = std::sqrt(1000 / (0.5 * rate));
    direct = level;
    for (std::size_t i = 0; i < all.size(); ++i) {
        direct *= zeros[i] / all[i];
        double gain = level;
        for (std::size_t j = 0; j < all.size(); ++j)
            gain *= (1 - zeros[j] / all[i]) / (j == i ? 1 : 1 - all[j] / all[i]);
        poles[i / 2][i % 2] = all[i];
        gains[i / 2][i % 2] = gain;
    }
}

HiresPinkNoise::HiresPinkNoise(int rate, double whiteAmplitude, std::uint64_t seed)
    : random(seed),
      sections(rate),
      amplitude(whiteAmplitude) {}

double HiresPinkNoise::FindPeak(int rate) {
    const Sections of(rate);
    constexpr std::size_t count = 2 * Sections::Pairs;
    double square = of.direct * of.direct; // of the impulse response, summed up
    for (std::size_t i = 0; i < count; ++i) {
        const double pole = of.poles[i / 2][i % 2], gain = of.gains[i / 2][i % 2];
        square += 2 * of.direct * gain;
        for (std::size_t j = 0; j < count; ++j)
            square += gain * of.gains[j / 2][j % 2] / (1 - pole * of.poles[j / 2][j % 2]);
    }
    return 6.5 * std::sqrt(square / 3); // white noise has a third of its peak's square
}

void HiresPinkNoise::Filter(double* out) {
    HiresRandom drawing = random; // in registers, as the states are
    auto now = states;
    for (std::size_t i = 0; i < HiresBlockFrames; ++i) {
        const double white = static_cast<double>(static_cast<std::int64_t>(drawing.Draw())) * 0x1p-63;
        Pair sum = {white * sections.direct, 0};
        for (std::size_t k = 0; k < Sections::Pairs; ++k) {
            now[k] = now[k] * sections.poles[k] + white;
            sum += now[k] * sections.gains[k];
        }
        out[i] = sum[0] + sum[1];
    }
    states = now;
    random = drawing;
}

void HiresPinkNoise::Add(HiresSums& sums) {
    Filter(&ladder[History]);
    const double scale = amplitude * (std::int64_t{1} << HiresSumBits);
    for (std::size_t i = 0; i < HiresBlockFrames; ++i) {
        const double* const middle = &ladder[i + HalfCorrection];
        double sum = *middle * Correction[0];
        for (std::ptrdiff_t k = 1; k <= static_cast<std::ptrdiff_t>(HalfCorrection); ++k)
            sum += (middle[k] + middle[-k]) * Correction[k];
        sums[i] += static_cast<std::int64_t>(sum * scale);
    }
    std::copy_n(ladder.end() - History, History, ladder.begin());
}
