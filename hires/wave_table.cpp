#include "hires/wave_table.h"

#include "hires/exact_math.h"
#include "hires/fourier.h"

#include <algorithm>
#include <bit>
#include <numbers>

namespace {

constexpr int LeastKnotBits = 10, MostKnotBits = 14, BitsPerHarmonic = 8;

int ChooseKnotBits(int harmonics) {
    return std::clamp(static_cast<int>(std::bit_width(static_cast<unsigned int>(harmonics))) +
                          BitsPerHarmonic,
                      LeastKnotBits, MostKnotBits);
}

/// Sums of cosines as the real parts of `count` sums, and sums of sines as their imaginary parts.
class TwoSeries {
public:
    explicit TwoSeries(std::size_t count) : values(count) {}

    void Set(int harmonic, double cosine, double sine) {
        const auto at = static_cast<std::size_t>(harmonic);
        values[at].real = (cosine + sine) / 2;
        values[values.size() - at].real = (cosine - sine) / 2;
    }
    std::vector<HiresComplex> AddUp() && {
        AddUpHarmonics(values);
        return std::move(values);
    }

private:
    std::vector<HiresComplex> values;
};

std::int32_t ToEntry(double value) {
    return static_cast<std::int32_t>(RoundToBits(value, HiresWaveTable::UnityBits));
}

} // namespace

HiresWaveTable::HiresWaveTable(const HiresWaveform& waveform, int harmonics)
    : phaseShift(64 - ChooseKnotBits(harmonics)) {
    const std::size_t count = std::size_t{1} << (64 - phaseShift);
    const double distance = 2 * std::numbers::pi / static_cast<double>(count);
    TwoSeries series(count);
    for (int k = 1; k <= harmonics; ++k) {
        const double size = waveform.getAmplitude(k) / (waveform.isPulse ? harmonics : 1);
        const double slope = size * k * distance;
        waveform.isPulse ? series.Set(k, size, -slope) : series.Set(k, slope, size);
    }
    for (const HiresComplex& sums : std::move(series).AddUp())
        knots.push_back(waveform.isPulse ? Knot{ToEntry(sums.real), ToEntry(sums.imaginary)}
                                         : Knot{ToEntry(sums.imaginary), ToEntry(sums.real)});
    knots.push_back(knots.front());
}

const HiresWaveTable& HiresWaveTables::Get(int harmonics) {
    return tables.try_emplace(harmonics, waveform, harmonics).first->second;
}
