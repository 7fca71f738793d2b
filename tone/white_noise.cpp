#include "tone/white_noise.h"

#include "sys/random.h"
#include "tone/tone_data.h"

#include <algorithm>

namespace {

constexpr double DrawScale = 0.00012207031255684342; // just above 2^-13
constexpr int SignBit = 0x200;                       // of a drawn value, makes it negative

} // namespace

SSWhiteNoise::SSWhiteNoise(std::uint32_t durationMs)
    : LSoundSourceBase(ToneSampleRate, 1, SynthesisPeakMax),
      seed(Randomize()),
      endSample(GetDurationFrames(durationMs, ToneSampleRate)) {}

void SSWhiteNoise::DrawTable() {
    LRandom random(seed);
    table.reserve(TableSize);
    for (int i = 0; i < TableSize; ++i) {
        const int value = static_cast<int>(random.Draw() * DrawScale);
        table.push_back((value & SignBit) != 0 ? -value : value);
    }
}

void SSWhiteNoise::Read(int* out, int frames) {
    if (status != SoundUsable)
        return;
    if (endSample != 0)
        position = WrapAdd(position, frames);
    if (table.empty())
        DrawTable();
    while (frames > 0) {
        if (readIndex >= TableSize)
            StartSegment();
        const int run = std::min(frames, TableSize - readIndex);
        std::transform(table.begin() + readIndex, table.begin() + readIndex + run, out,
                       [flips = mask](int entry) { return entry ^ flips; });
        readIndex += run;
        out += run;
        frames -= run;
    }
}

void SSWhiteNoise::StartSegment() {
    if (segmentCounter >= TableSize)
        segmentCounter = 0;
    mask = table[static_cast<std::size_t>(segmentCounter++)];
    readIndex = mask & (TableSize - 1);
}

int SSWhiteNoise::GetEndSample() const {
    return endSample != 0 ? endSample : sampleRate * 60;
}

void SSWhiteNoise::Seek(int /*frame*/) {
    position = readIndex = segmentCounter = mask = 0;
}
