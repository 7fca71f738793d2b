#include "tone/noise_source.h"

#include "tone/tone_data.h"

#include <algorithm>

template <class Entry>
NoiseSource<Entry>::NoiseSource(int frames)
    : LSoundSourceBase(ToneSampleRate, 1, SynthesisPeakMax),
      seed(Randomize()),
      endSample(frames) {}

template <class Entry>
void NoiseSource<Entry>::DrawTable() {
    LRandom random(seed);
    table.reserve(TableSize);
    for (int i = 0; i < TableSize; ++i)
        table.push_back(DrawEntry(random));
}

template <class Entry>
void NoiseSource<Entry>::Read(int* out, int frames) {
    if (status != SoundUsable)
        return;
    if (endSample != 0)
        position = WrapAdd(position, frames);
    if (table.empty())
        DrawTable();
    while (frames > 0) {
        if (segment.begin >= segment.end)
            segment = DrawSegment();
        const int run = std::min(frames, segment.end - segment.begin);
        Play(&table[static_cast<std::size_t>(segment.begin)], out, run);
        segment.begin += run;
        out += run;
        frames -= run;
    }
}

template <class Entry>
Entry NoiseSource<Entry>::TakeEntry() {
    return table[nextTaken++ % TableSize];
}

template <class Entry>
int NoiseSource<Entry>::GetEndSample() const {
    return endSample != 0 ? endSample : EndlessToneFrames;
}

template <class Entry>
void NoiseSource<Entry>::Seek(int /*frame*/) {
    position = 0;
    nextTaken = 0;
    segment = {0, TableSize};
    Restart();
}

template class NoiseSource<int>;
template class NoiseSource<double>;
