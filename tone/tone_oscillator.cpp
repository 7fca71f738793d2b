#include "tone/tone_oscillator.h"

#include "sound/fixed_point.h"
#include "sound/kernels/kernels.h"
#include "sound/level.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double IncrementPerHz = 97391.54866213152; // 2^32 / 44100
constexpr int TableShift = 17;                       // leaves the 15 bits that index the table

/// How many frames of a sum stay in registers.
constexpr int FramesInRegisters = 8;
/// The most frames of an oscillator that wait for its gain; short enough to stay in the fastest cache.
constexpr int GainFrames = 512;

/// Truncated toward zero, modulo 2^32.
std::uint32_t ToIncrement(double value) {
    if (std::fabs(value) < 0x1p63)
        return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
    return std::isfinite(value) ? ToIncrement(std::fmod(value, 0x1p32)) : 0;
}

/// Writes what `shape` makes of one oscillator's new phases and its increment.
template <class Shape>
void Produce(SSTonePole& oscillator, Shape shape, int* out, int stride, int frames) {
    std::uint32_t phase = oscillator.phase;
    const std::uint32_t increment = oscillator.currentIncrement;
    for (int i = 0; i < frames; ++i, out += stride) {
        phase += increment;
        *out = shape(phase, increment);
    }
    oscillator.phase = phase;
}

/// The same of the sum of several.
template <int Frames, class Shape>
void SumFrames(std::span<SSTonePole> oscillators, Shape shape, int* out, int stride) {
    int sums[Frames] = {};
    for (SSTonePole& oscillator : oscillators) {
        std::uint32_t phase = oscillator.phase;
        const std::uint32_t increment = oscillator.currentIncrement;
#pragma GCC unroll FramesInRegisters
        for (int& sum : sums) {
            phase += increment;
            sum = WrapAdd(sum, shape(phase, increment));
        }
        oscillator.phase = phase;
    }
    for (const int sum : sums) {
        *out = sum;
        out += stride;
    }
}

template <class Shape>
void Sum(std::span<SSTonePole> oscillators, Shape shape, int* out, int stride, int frames) {
    if (oscillators.size() == 1) { // whose phase is faster kept in a register
        Produce(oscillators.front(), shape, out, stride, frames);
        return;
    }
    for (; frames >= FramesInRegisters; frames -= FramesInRegisters, out += FramesInRegisters * stride)
        SumFrames<FramesInRegisters>(oscillators, shape, out, stride);
    for (; frames > 0; --frames, out += stride)
        SumFrames<1>(oscillators, shape, out, stride);
}

/// Adds what one oscillator has at its gain.
template <class Shape>
void AddAtGain(SSTonePole& oscillator, Shape shape, int* sums, int frames) {
    int samples[GainFrames];
    Produce(oscillator, shape, samples, 1, frames);
    Kernels().applyGainLine(samples, samples, frames, 1, oscillator.gain, 0);
    for (int i = 0; i < frames; ++i)
        sums[i] = WrapAdd(sums[i], samples[i]);
}

/// The sum of oscillators of any gain.
template <class Shape>
void SumAtGains(std::span<SSTonePole> atUnity, std::span<SSTonePole> others, Shape shape, int* out,
                int stride, int frames) {
    while (frames > 0) {
        const int count = std::min(frames, GainFrames);
        int sums[GainFrames];
        Sum(atUnity, shape, sums, 1, count);
        for (SSTonePole& each : others)
            AddAtGain(each, shape, sums, count);
        for (int i = 0; i < count; ++i)
            out[i * stride] = sums[i];
        out += count * stride;
        frames -= count;
    }
}

/// A phase wraps where the new one is less than what was added.
int GetImpulse(std::uint32_t phase, std::uint32_t increment) {
    return phase < increment ? SSTonePole::ImpulseLevel : 0;
}

} // namespace

void SSTonePole::Init(double startHz, double endHz, std::int8_t amplitudeDb, bool logSweep) {
    startIncrement = currentIncrement = ToIncrement(startHz * IncrementPerHz);
    sweepParameter = logSweep ? endHz / startHz : endHz * IncrementPerHz - startIncrement;
    phase = 0;
    gain = LDB(amplitudeDb).GetAmplitude();
}

void SSTonePole::Restart() {
    phase = 0;
    currentIncrement = startIncrement;
}

void SumOscillators(std::span<SSTonePole> oscillators, const ToneWaveTable* table, int* out, int stride,
                    int frames) {
    if (!table) { // Kept quirk: their gains are left out
        Sum(oscillators, GetImpulse, out, stride, frames);
        return;
    }
    const auto look = [entries = table->data()](std::uint32_t phase, std::uint32_t /*increment*/) {
        return entries[phase >> TableShift];
    };
    const auto atUnity = [](const SSTonePole& each) { return each.IsAtUnity(); };
    const auto others = std::find_if_not(oscillators.begin(), oscillators.end(), atUnity);
    if (others == oscillators.end())
        Sum(oscillators, look, out, stride, frames);
    else
        SumAtGains({oscillators.begin(), others}, {others, oscillators.end()}, look, out, stride, frames);
}

void SweepOscillators(std::span<SSTonePole> oscillators, double fraction, bool logSweep) {
    for (SSTonePole& each : oscillators)
        each.currentIncrement =
            logSweep ? ToIncrement(each.startIncrement * std::pow(each.sweepParameter, fraction))
                     : ToIncrement(fraction * each.sweepParameter) + each.startIncrement;
}
