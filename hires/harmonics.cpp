#include "hires/harmonics.h"

#include "hires/sine_table.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr std::size_t Before = 1, After = 2;
constexpr int PhaseShift = 64 - 15; // leaves the bits that index the table
constexpr int PartBits = 26;        // of what lies between two entries

/// Truncated, so that the same comes out with both signs.
std::int32_t Multiply(std::int64_t amplitude, std::int32_t sine) {
    return static_cast<std::int32_t>(amplitude * sine / (std::int64_t{1} << 31));
}

} // namespace

HiresHarmonics::HiresHarmonics(const HiresSpectrum& of) : spectrum(of), table(Before + Entries + After) {}

void HiresHarmonics::SetHighest(int harmonic) {
    while (highest < harmonic)
        Add(++highest, 1);
    while (highest > harmonic)
        Add(highest--, -1);
}

std::int64_t HiresHarmonics::GetAmplitude(int harmonic) const {
    return static_cast<std::int64_t>(std::floor(spectrum.getAmplitude(harmonic) * Unity + 0.5));
}

void HiresHarmonics::Add(int harmonic, int sign) {
    const std::int64_t amplitude = sign * GetAmplitude(harmonic);
    if (amplitude == 0)
        return;
    const HiresSineTable& sine = GetHiresSineTable();
    std::int32_t* entries = &table[Before];
    const auto step = static_cast<unsigned int>(harmonic);
    unsigned int at = static_cast<unsigned int>(spectrum.ahead);
    for (unsigned int i = 0; i <= Entries / 2; ++i, at += step)
        entries[i] += Multiply(amplitude, sine[at % Entries]);
    const int mirror = spectrum.ahead == 0 ? -1 : 1; // sines are odd, cosines even
    for (unsigned int i = 1; i < Entries / 2; ++i)
        entries[Entries - i] = mirror * entries[i];
    table.front() = entries[Entries - 1];
    std::copy_n(entries, After, entries + Entries);
}

std::int32_t HiresHarmonics::LookUp(std::uint64_t phase) const {
    const std::int32_t* at = &table[static_cast<std::size_t>(phase >> PhaseShift)]; // the entry before
    const auto part = static_cast<std::int64_t>(phase >> (PhaseShift - PartBits) & ((1 << PartBits) - 1));
    const std::int64_t before = at[0], from = at[1], to = at[2], after = at[3];
    // The polynomial through all four, times 6 (after Lagrange).
    const std::int64_t first = 6 * to - 2 * before - 3 * from - after;
    const std::int64_t second = 3 * (to + before) - 6 * from;
    const std::int64_t third = after - before + 3 * (from - to);
    std::int64_t sum = third * part >> PartBits;
    sum = (sum + second) * part >> PartBits;
    sum = (sum + first) * part >> PartBits;
    return static_cast<std::int32_t>(from + sum / 6);
}

std::int32_t HiresHarmonics::LookUpHarmonic(int harmonic, std::uint64_t phase) const {
    const std::uint64_t ahead = static_cast<std::uint64_t>(spectrum.ahead) << PhaseShift;
    return Multiply(GetAmplitude(harmonic),
                    LookUpSine(GetHiresSineTable(), static_cast<std::uint64_t>(harmonic) * phase + ahead));
}

std::int32_t HiresHarmonics::GetPeak() const {
    std::int32_t peak = 0;
    for (const std::int32_t entry : table)
        peak = std::max(peak, std::abs(entry));
    return peak;
}
