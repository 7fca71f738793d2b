#include "hires/fourier.h"

#include "hires/exact_math.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

constexpr int MostBits = 16;

/// e^(2 pi i k / 2^16) for half a turn.
std::vector<HiresComplex> MakeTurns() {
    std::vector<HiresComplex> turns(std::size_t{1} << (MostBits - 1));
    for (std::size_t k = 0; k < turns.size(); ++k) {
        const std::uint64_t phase = std::uint64_t{k} << (64 - MostBits);
        turns[k] = {ExactSine(phase + (std::uint64_t{1} << 62)), ExactSine(phase)};
    }
    return turns;
}

/// So that what is done in pairs ends in order.
void ReverseBits(std::vector<HiresComplex>& values) {
    for (std::size_t i = 1, j = 0; i < values.size(); ++i) {
        std::size_t bit = values.size() / 2;
        for (; (j & bit) != 0; bit /= 2)
            j ^= bit;
        j ^= bit;
        if (i < j)
            std::swap(values[i], values[j]);
    }
}

} // namespace

void AddUpHarmonics(std::vector<HiresComplex>& values) {
    static const std::vector<HiresComplex> turns = MakeTurns();
    ReverseBits(values);
    for (std::size_t half = 1; half < values.size(); half *= 2)
        for (std::size_t start = 0; start < values.size(); start += 2 * half)
            for (std::size_t i = 0; i < half; ++i) {
                HiresComplex& first = values[start + i];
                HiresComplex& second = values[start + half + i];
                const HiresComplex& turn = turns[i * (turns.size() / half)];
                const HiresComplex turned{second.real * turn.real - second.imaginary * turn.imaginary,
                                          second.real * turn.imaginary + second.imaginary * turn.real};
                second = {first.real - turned.real, first.imaginary - turned.imaginary};
                first = {first.real + turned.real, first.imaginary + turned.imaginary};
            }
}
