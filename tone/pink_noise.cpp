#include "tone/pink_noise.h"

#include "tone/tone_data.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double DrawScale = 8.54492187897904e-6;
constexpr int HalfTable = SSPinkNoise::TableSize / 2;

int TruncateSaturating(double value) {
    constexpr double lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

/// Takes white samples through a widely published approximation of -3 dB an octave, within 0.05 dB above 9.2
/// Hz: six one-pole sections and a delayed sample. The sections run in pairs, two to a vector register, and
/// are added in their order.
void Pinken(SSPinkNoise::FilterState& state, const double* white, int* pink, int count) {
    using Pair = SSPinkNoise::Pair;
    constexpr Pair poles[3] = {{0.99886, 0.99332}, {0.969, 0.8665}, {0.55, -0.7616}};
    constexpr Pair gains[3] = {{0.0555179, 0.0750759}, {0.153852, 0.3104856}, {0.5329522, -0.016898}};
    Pair a = state.sections[0], b = state.sections[1], c = state.sections[2];
    double delayed = state.delayed;
    for (int i = 0; i < count; ++i) {
        const double w = white[i];
        const Pair both = {w, w};
        a = poles[0] * a + gains[0] * both;
        b = poles[1] * b + gains[1] * both;
        c = poles[2] * c + gains[2] * both;
        pink[i] = TruncateSaturating(a[0] + a[1] + b[0] + b[1] + c[0] + c[1] + delayed + 0.5362 * w);
        delayed = 0.115926 * w;
    }
    state = {{a, b, c}, delayed};
}

} // namespace

SSPinkNoise::SSPinkNoise(std::uint32_t durationMs)
    : NoiseSource(std::max(0, GetDurationFrames(durationMs, ToneSampleRate))) {}

double SSPinkNoise::DrawEntry(LRandom& random) {
    const double scale = random.Draw() % 2 != 0 ? DrawScale : -DrawScale;
    return random.Draw() * scale;
}

/// Starts in the first half of the table and ends in the second.
SSPinkNoise::Segment SSPinkNoise::DrawSegment() {
    const int begin = DrawPlace();
    return {begin, DrawPlace() + HalfTable};
}

int SSPinkNoise::DrawPlace() {
    return static_cast<int>(TakeEntry() * 10.0) & (HalfTable - 1);
}

void SSPinkNoise::Play(const double* entries, int* out, int count) {
    Pinken(filter, entries, out, count);
}
