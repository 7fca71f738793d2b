#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// Draws random numbers of 64 bits with a period of 2^256 - 1: xoshiro256++ (D. Blackman, S. Vigna,
/// "Scrambled linear pseudorandom number generators", 2021), filled from its seed by SplitMix64.
class HiresRandom {
public:
    explicit HiresRandom(std::uint64_t seed);
    std::uint64_t Draw();

private:
    std::array<std::uint64_t, 4> state;
};

enum class HiresColour { White, Pink };

/// White noise, evenly spread over its amplitude; or pink noise, which is that filtered: -3 dB an octave from
/// 10 Hz to 0.98 of half the rate, within 0.1 dB.
class HiresNoise {
public:
    /// `amplitude` is that of the white noise, full scale being 1; at 1 kHz, the pink noise is as dense.
    HiresNoise(HiresColour of, int rate, double amplitude, std::uint64_t seed);

    /// Adds the next frames to sums[0], sums[stride], ...; 2^52 is full scale.
    void Add(std::int64_t* sums, int stride, int frames);

private:
    /// 1 / (1 - p z^-1).
    struct Section {
        std::int64_t decay; ///< 1 - p
        std::int64_t gain;
        std::int64_t state = 0;
    };
    static constexpr int HalfCorrection = 5;

    void DesignPink(int rate);
    std::int64_t MakePink(std::int64_t white);

    HiresColour colour;
    std::int64_t gain; ///< 2^40 is 1
    HiresRandom random;
    std::vector<Section> sections;
    std::int64_t direct = 0;                                 ///< the white noise's own part
    std::array<std::int64_t, 2 * HalfCorrection + 1> last{}; ///< the last outputs of the sections
};
