#include "tone/white_noise.h"

#include "tone/tone_data.h"

#include <algorithm>

namespace {

constexpr double DrawScale = 0.00012207031255684342; // just above 2^-13
constexpr int SignBit = 0x200;                       // of a drawn value, makes it negative

} // namespace

SSWhiteNoise::SSWhiteNoise(std::uint32_t durationMs)
    : NoiseSource(GetDurationFrames(durationMs, ToneSampleRate)) {}

int SSWhiteNoise::DrawEntry(LRandom& random) {
    const int value = static_cast<int>(random.Draw() * DrawScale);
    return (value & SignBit) != 0 ? -value : value;
}

SSWhiteNoise::Segment SSWhiteNoise::DrawSegment() {
    mask = TakeEntry();
    return {mask & (TableSize - 1), TableSize};
}

void SSWhiteNoise::Play(const int* entries, int* out, int count) {
    std::transform(entries, entries + count, out, [flips = mask](int entry) { return entry ^ flips; });
}
