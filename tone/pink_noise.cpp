#include "tone/pink_noise.h"

#include "tone/tone_data.h"

#include <algorithm>

namespace {

constexpr double DrawScale = 8.54492187897904e-6;
constexpr int HalfTable = SSPinkNoise::TableSize / 2;

/// A widely published approximation of -3 dB an octave, within 0.05 dB above 9.2 Hz.
constexpr LOnePoles Pinkening = {
    .poles = {0.99886, 0.99332, 0.969, 0.8665, 0.55, -0.7616},
    .gains = {0.0555179, 0.0750759, 0.153852, 0.3104856, 0.5329522, -0.016898},
    .delayed = 0.115926,
    .direct = 0.5362,
};

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
    Kernels().filter(Pinkening, state, entries, out, count);
}
