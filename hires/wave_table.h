#pragma once

#include "hires/waveform.h"

#include <cstdint>
#include <map>
#include <vector>

/// One cycle of a waveform that has only its first harmonics, so that none is beyond half the rate.
///
/// It is kept as values and slopes, between which a curve of the third degree is taken. What that adds to a
/// harmonic stays 185 dB below the lowest one where there are a hundred, and 140 dB where there are a
/// thousand.
class HiresWaveTable {
public:
    /// 2^`UnityBits` stands for 1, so that overshoots fit.
    static constexpr int UnityBits = 30;

    /// `harmonics` is 0..`HiresWaveform::mostInTables`. Those of a pulse are divided by their number, so that
    /// they fit.
    HiresWaveTable(const HiresWaveform& waveform, int harmonics);

    /// The value at a phase of which 2^64 are a cycle.
    std::int32_t LookUp(std::uint64_t phase) const;

private:
    struct Knot {
        std::int32_t value, slope; ///< the slope is that of one knot's distance
    };
    int phaseShift;          ///< leaves the bits that tell the knot
    std::vector<Knot> knots; ///< and the first one once more
};

/// The tables of one waveform, each made once.
class HiresWaveTables {
public:
    explicit HiresWaveTables(const HiresWaveform& of) : waveform(of) {}

    /// Good for as long as this is.
    const HiresWaveTable& Get(int harmonics);

private:
    const HiresWaveform& waveform;
    std::map<int, HiresWaveTable> tables;
};

inline std::int32_t HiresWaveTable::LookUp(std::uint64_t phase) const {
    constexpr int partBits = 28; // so that 64 bits hold the products
    const Knot* const knot = &knots[static_cast<std::size_t>(phase >> phaseShift)];
    const auto part = static_cast<std::int64_t>((phase << (64 - phaseShift)) >> (64 - partBits));
    const std::int64_t from = knot[0].value, rise = knot[1].value - from;
    const std::int64_t first = knot[0].slope, last = knot[1].slope;
    std::int64_t sum = (first + last - 2 * rise) * part >> partBits; // after Hermite
    sum = (sum + 3 * rise - 2 * first - last) * part >> partBits;
    sum = (sum + first) * part >> partBits;
    return static_cast<std::int32_t>(from + sum);
}
