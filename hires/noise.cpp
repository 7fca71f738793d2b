#include "hires/noise.h"

#include "hires/exact_math.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int SumBits = 52;
constexpr int WhiteBits = 40; // of the white noise's amplitude, and of its gain
constexpr int DecayBits = 40, SectionGainBits = 40, CorrectionBits = 30;
constexpr double LowestPoleHz = 2;

/// Half of a symmetrical filter, from the middle on: what one-pole sections make too loud towards half the
/// rate, the same at any rate. By least squares up to 0.985 of it.
constexpr double Correction[] = {0.93280165, 0.04091158, -0.00991911, 0.00431138, -0.00234781, 0.00153};

std::int64_t ToFixed(double value, int bits) {
    return static_cast<std::int64_t>(std::floor(std::ldexp(value, bits) + 0.5));
}

std::int64_t Multiply(std::int64_t a, std::int64_t b, int bits) {
    return static_cast<std::int64_t>(static_cast<__int128>(a) * b >> bits);
}

std::uint64_t RotateLeft(std::uint64_t value, int bits) {
    return value << bits | value >> (64 - bits);
}

} // namespace

HiresRandom::HiresRandom(std::uint64_t seed) {
    for (std::uint64_t& each : state) {
        seed += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = (seed ^ seed >> 30) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
        each = mixed ^ mixed >> 31;
    }
}

std::uint64_t HiresRandom::Draw() {
    const std::uint64_t drawn = RotateLeft(state[0] + state[3], 23) + state[0];
    const std::uint64_t shifted = state[1] << 17;
    state[2] ^= state[0];
    state[3] ^= state[1];
    state[1] ^= state[2];
    state[0] ^= state[3];
    state[2] ^= shifted;
    state[3] = RotateLeft(state[3], 45);
    return drawn;
}

HiresNoise::HiresNoise(HiresColour of, int rate, double amplitude, std::uint64_t seed)
    : colour(of),
      gain(ToFixed(amplitude, WhiteBits)),
      random(seed) {
    if (colour == HiresColour::Pink)
        DesignPink(rate);
}

/// A ladder of poles an octave apart with a zero between each two falls by 3 dB an octave. Taken apart into
/// sections side by side, each pole has the gain that it would have in the ladder.
void HiresNoise::DesignPink(int rate) {
    std::vector<double> poles, zeros, decays;
    for (double hz = LowestPoleHz; hz < rate; hz *= 2) {
        decays.push_back(-ExactExpLessOne(-2 * std::numbers::pi * hz / rate));
        poles.push_back(1 - decays.back());
        zeros.push_back(ExactExp(-2 * std::numbers::pi * hz * std::numbers::sqrt2 / rate));
    }
    double rest = 1;
    for (std::size_t i = 0; i < poles.size(); ++i)
        rest *= zeros[i] / poles[i];
    std::vector<double> gains;
    for (std::size_t i = 0; i < poles.size(); ++i) {
        double each = 1;
        for (std::size_t j = 0; j < poles.size(); ++j)
            each *= (1 - zeros[j] / poles[i]) / (j == i ? 1 : 1 - poles[j] / poles[i]);
        gains.push_back(each);
    }
    // The ladder's gain at its top is about 1, and it rises by 3 dB with every octave below.
    const double level = ExactExp(0.5 * ExactLog(1000 / (0.5 * rate)));
    direct = ToFixed(rest * level, SectionGainBits);
    for (std::size_t i = 0; i < poles.size(); ++i)
        sections.push_back({ToFixed(decays[i], DecayBits), ToFixed(gains[i] * level, SectionGainBits)});
}

std::int64_t HiresNoise::MakePink(std::int64_t white) {
    __int128 sum = static_cast<__int128>(white) * direct;
    for (Section& each : sections) {
        each.state += white - Multiply(each.state, each.decay, DecayBits);
        sum += static_cast<__int128>(each.state) * each.gain;
    }
    std::rotate(last.begin(), last.end() - 1, last.end());
    last.front() = static_cast<std::int64_t>(sum >> SectionGainBits);
    std::int64_t corrected = 0;
    for (int i = 0; i < static_cast<int>(last.size()); ++i)
        corrected +=
            Multiply(last[static_cast<std::size_t>(i)],
                     ToFixed(Correction[std::abs(i - HalfCorrection)], CorrectionBits), CorrectionBits);
    return corrected;
}

void HiresNoise::Add(std::int64_t* sums, int stride, int frames) {
    for (int i = 0; i < frames; ++i) {
        const auto white = static_cast<std::int64_t>(random.Draw()) >> (63 - WhiteBits);
        const std::int64_t value = colour == HiresColour::White ? white : MakePink(white);
        sums[i * stride] += Multiply(value, gain, 2 * WhiteBits - SumBits);
    }
}
