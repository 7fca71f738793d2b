#pragma once

#include <cstdint>

/// What the high-resolution engine is told beside the tone.
struct HiresSettings {
    static constexpr int LowestRate = 8000, HighestRate = 768000;
    /// Where a sine of 0 dB stands in the standard quality.
    static constexpr double StandardLevel = -12.04;
    static constexpr double LowestLevel = -200;
    /// Of both fades where a tone is played and nothing else is asked for.
    static constexpr double PlayedFadeMs = 10;

    int rate = 44100;             ///< `LowestRate`..`HighestRate`
    double level = StandardLevel; ///< dBFS of a component of 0 dB: `LowestLevel`..0 and above
    bool fit = false;             ///< lowers what would exceed full scale, which is refused otherwise
    double fadeInMs = 0;          ///< a raised cosine, at most half of the sound
    double fadeOutMs = 0;
    std::uint64_t seed = 1; ///< of noise
};
