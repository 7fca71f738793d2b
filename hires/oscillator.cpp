#include "hires/oscillator.h"

#include "hires/sine_table.h"
#include "tone/tone_data.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// A sweep fades a harmonic out over this part of the last way to half the rate, as seen from the lowest.
constexpr double FadeSteepness = 64;
constexpr int SineBits = 31, TableBits = 30, GainBits = 31, SumBits = 52;
/// In which the harmonics of a pulse are counted, so that a table holds all that there may be.
constexpr int PulseBits = 13;

double GetSquare(int harmonic) {
    return harmonic % 2 != 0 ? 4 / (std::numbers::pi * harmonic) : 0;
}

double GetTriangle(int harmonic) {
    if (harmonic % 2 == 0)
        return 0;
    const double size = 8 / (std::numbers::pi * std::numbers::pi * harmonic * harmonic);
    return harmonic % 4 == 1 ? size : -size;
}

double GetSaw(int harmonic) {
    const double size = 2 / (std::numbers::pi * harmonic);
    return harmonic % 2 != 0 ? size : -size;
}

/// With every second one turned round, pulses stand in the middle of their cycles, whole from the first on.
double GetPulse(int harmonic) {
    return (harmonic % 2 != 0 ? -1.0 : 1.0) / (1 << PulseBits);
}

constexpr HiresSpectrum Square{GetSquare, 0}, Triangle{GetTriangle, 0}, Saw{GetSaw, 0},
    Pulse{GetPulse, HiresHarmonics::Entries / 4};

/// In the order of their codes. The most that partial sums of a square reach is its first one, of a saw the
/// Wilbraham-Gibbs constant.
constexpr HiresWaveform Waveforms[] = {{nullptr, 1, false},
                                       {&Square, 4 / std::numbers::pi, false},
                                       {&Triangle, 1, false},
                                       {&Saw, 1.17898, false},
                                       {&Pulse, 1.5, true}};

} // namespace

const HiresWaveform* HiresWaveform::Find(unsigned int code) {
    return code < std::size(Waveforms) ? &Waveforms[code] : nullptr;
}

namespace {

/// How many harmonics lie below half the rate, and a part of the next one.
double CountHarmonics(double partOfRate) {
    return partOfRate > 0 ? 0.5 / partOfRate : HiresHarmonics::Most + 1.0;
}

/// Those that are wholly below.
int CountWhole(double harmonics) {
    return static_cast<int>(std::fmin(std::ceil(harmonics) - 1, HiresHarmonics::Most));
}

} // namespace

HiresOscillator::HiresOscillator(const HiresWaveform& of, const HiresFrequencyPath& frequency, double peak)
    : waveform(of),
      path(frequency),
      amplitude(peak),
      gain(static_cast<std::int64_t>(std::floor(peak * (std::int64_t{1} << GainBits) + 0.5))) {
    if (waveform.spectrum)
        harmonics.emplace(*waveform.spectrum);
    if (path.IsSteady() && CountWhole(CountHarmonics(path.GetPartOfRate())) == 0)
        gain = 0;
    else if (path.IsSteady() && harmonics)
        harmonics->SetHighest(CountWhole(CountHarmonics(path.GetPartOfRate())));
}

double HiresOscillator::GetPeak() const {
    if (!path.IsSteady() || !harmonics || waveform.isPulse)
        return gain == 0 ? 0 : amplitude * waveform.peak;
    return amplitude * harmonics->GetPeak() / HiresHarmonics::Unity;
}

void HiresOscillator::Add(std::int64_t* sums, int stride, int frames) {
    const HiresSineTable& sine = GetHiresSineTable();
    if (!harmonics && path.IsSteady())
        AddEach(sums, stride, frames, [&] { return LookUpSine(sine, phase) >> (SineBits - TableBits); });
    else if (!harmonics)
        AddEach(sums, stride, frames,
                [&] { return Fade(LookUpSine(sine, phase) >> (SineBits - TableBits)); });
    else if (path.IsSteady())
        AddEach(sums, stride, frames, [&] { return ScalePulse(harmonics->LookUp(phase)); });
    else
        AddEach(sums, stride, frames, [&] { return ScalePulse(GetSweepingShape()); });
}

template <class Value>
void HiresOscillator::AddEach(std::int64_t* sums, int stride, int frames, Value value) {
    for (int i = 0; i < frames; ++i) {
        sums[i * stride] += value() * gain >> (TableBits + GainBits - SumBits);
        phase += path.GetIncrement();
        path.MoveOn();
    }
}

/// The highest harmonic that sounds fades out, so that it doesn't break off where it reaches half the rate.
std::int64_t HiresOscillator::Fade(std::int64_t value) const {
    const double count = CountHarmonics(path.GetPartOfRate());
    const double left = std::fmin((count - std::floor(count)) * FadeSteepness, 1);
    return count < 1 ? 0 : static_cast<std::int64_t>(static_cast<double>(value) * left);
}

std::int64_t HiresOscillator::GetSweepingShape() {
    const double count = CountHarmonics(path.GetPartOfRate());
    const int highest = static_cast<int>(std::fmin(count, HiresHarmonics::Most));
    if (highest == 0)
        return 0;
    harmonics->SetHighest(highest - 1);
    return harmonics->LookUp(phase) + Fade(harmonics->LookUpHarmonic(highest, phase));
}

/// The harmonics of pulses are as large as the part of the rate that their frequency is, twice, and beside
/// them stands half of that.
std::int64_t HiresOscillator::ScalePulse(std::int64_t value) const {
    if (!waveform.isPulse)
        return value;
    const auto part = static_cast<std::int64_t>(path.GetPartOfRate() * (std::int64_t{1} << TableBits));
    return (value * part >> (TableBits - PulseBits - 1)) + part;
}
