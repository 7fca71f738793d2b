#include "tone/tone_oscillator.h"

#include "sound/fixed_point.h"
#include "sound/level.h"

#include <cmath>

namespace {

constexpr double IncrementPerHz = 97391.54866213152; // 2^32 / 44100
constexpr int TableShift = 17;                       // leaves the 15 bits that index the table

/// Truncated toward zero, modulo 2^32.
std::uint32_t ToIncrement(double value) {
    if (!std::isfinite(value))
        return 0;
    if (std::fabs(value) >= 0x1p63)
        value = std::fmod(value, 0x1p32);
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

/// Puts shape(old phase, new phase) to every frame, or adds it; returns the last phase.
template <bool Add, class Shape>
std::uint32_t PutFrames(int* out, int stride, int frames, std::uint32_t phase, std::uint32_t increment,
                        Shape shape) {
    for (int i = 0; i < frames; ++i, out += stride) {
        const std::uint32_t last = phase;
        phase += increment;
        *out = Add ? WrapAdd(*out, shape(last, phase)) : shape(last, phase);
    }
    return phase;
}

} // namespace

void SSTonePole::Init(double startHz, double endHz, std::int8_t amplitudeDb, bool impulse, bool logSweep) {
    isImpulse = impulse;
    startIncrement = currentIncrement = ToIncrement(startHz * IncrementPerHz);
    sweepParameter = logSweep ? endHz / startHz : endHz * IncrementPerHz - startIncrement;
    phase = 0;
    gain = LDB(amplitudeDb).GetAmplitude();
}

void SSTonePole::Produce(int* out, int stride, int frames, const ToneWaveTable& table, bool add) {
    const int* entries = table.data();
    const auto put = [&](auto shape) {
        phase = add ? PutFrames<true>(out, stride, frames, phase, currentIncrement, shape)
                    : PutFrames<false>(out, stride, frames, phase, currentIncrement, shape);
    };
    if (isImpulse) // Kept quirk: its gain is left out
        put([](std::uint32_t last, std::uint32_t now) { return now < last ? ImpulseLevel : 0; });
    else if (gain == UnityGain) // where the split product gives the sample itself
        put([entries](std::uint32_t, std::uint32_t now) { return entries[now >> TableShift]; });
    else
        put([entries, factor = gain](std::uint32_t, std::uint32_t now) {
            return SplitProduct(entries[now >> TableShift], factor);
        });
}

void SSTonePole::Sweep(double fraction, bool logSweep) {
    if (logSweep)
        currentIncrement = ToIncrement(startIncrement * std::pow(sweepParameter, fraction));
    else
        currentIncrement = ToIncrement(fraction * sweepParameter) + startIncrement;
}

void SSTonePole::Restart() {
    phase = 0;
    currentIncrement = startIncrement;
}
