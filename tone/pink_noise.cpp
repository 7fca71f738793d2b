#include "tone/pink_noise.h"

#include "sys/random.h"
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

/// One sample through Paul Kellet's refined pinking filter (musicdsp.org), within 0.05 dB above 9.2 Hz.
double Pinken(std::array<double, 7>& b, double white) {
    b[0] = 0.99886 * b[0] + 0.0555179 * white;
    b[1] = 0.99332 * b[1] + 0.0750759 * white;
    b[2] = 0.969 * b[2] + 0.153852 * white;
    b[3] = 0.8665 * b[3] + 0.3104856 * white;
    b[4] = 0.55 * b[4] + 0.5329522 * white;
    b[5] = -0.7616 * b[5] - 0.016898 * white;
    const double pink = b[0] + b[1] + b[2] + b[3] + b[4] + b[5] + b[6] + 0.5362 * white;
    b[6] = 0.115926 * white;
    return pink;
}

} // namespace

SSPinkNoise::SSPinkNoise(std::uint32_t durationMs)
    : LSoundSourceBase(ToneSampleRate, 1, SynthesisPeakMax),
      seed(Randomize()),
      endSample(GetDurationFrames(durationMs, ToneSampleRate)) {}

void SSPinkNoise::DrawTable() {
    LRandom random(seed);
    table.reserve(TableSize);
    for (int i = 0; i < TableSize; ++i) {
        const double scale = random.Draw() % 2 != 0 ? DrawScale : -DrawScale;
        table.push_back(random.Draw() * scale);
    }
}

void SSPinkNoise::Read(int* out, int frames) {
    if (status != SoundUsable)
        return;
    if (endSample > 0)
        position = WrapAdd(position, frames);
    if (table.empty())
        DrawTable();
    FilterState state = filter;
    while (frames > 0) {
        if (readIndex >= segmentEnd)
            StartSegment();
        const int run = std::min(frames, segmentEnd - readIndex);
        const double* entries = &table[static_cast<std::size_t>(readIndex)];
        for (int i = 0; i < run; ++i)
            out[i] = TruncateSaturating(Pinken(state, entries[i]));
        readIndex += run;
        out += run;
        frames -= run;
    }
    filter = state;
}

/// Every segment starts in the first half of the table and ends in the second.
void SSPinkNoise::StartSegment() {
    if (segmentCounter >= TableSize)
        segmentCounter = 0;
    readIndex = DrawPlace();
    segmentEnd = DrawPlace() + HalfTable;
}

int SSPinkNoise::DrawPlace() {
    const double entry = table[static_cast<std::size_t>(segmentCounter++)];
    return static_cast<int>(entry * 10.0) & (HalfTable - 1);
}

int SSPinkNoise::GetEndSample() const {
    return endSample > 0 ? endSample : sampleRate * 60;
}

void SSPinkNoise::Seek(int /*frame*/) {
    position = readIndex = segmentCounter = 0;
    segmentEnd = TableSize;
    filter = {};
}
