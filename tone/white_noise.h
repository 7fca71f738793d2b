#pragma once

#include "sound/sound_source.h"

#include <cstdint>
#include <vector>

/// White noise, mono at 44100 Hz: a table of random values, then, so that it does not repeat, segments of the
/// table that start at random and are XORed with a random value. Frequencies, levels and channels of a tone
/// don't apply.
class SSWhiteNoise : public LSoundSourceBase {
public:
    static constexpr int TableSize = 32768;

    /// 0 ms means endless. The table is drawn by the first `Read`, and again by the first one after `Unload`,
    /// from a seed that the source keeps: a list of thousands of noises holds the table of the playing one
    /// alone.
    explicit SSWhiteNoise(std::uint32_t durationMs);

    void Read(int* out, int frames) override;
    int GetPositionSample() const override { return position; }
    /// One minute for endless noise.
    int GetEndSample() const override;
    /// Restarts from the beginning, whatever frame is asked for.
    void Seek(int frame) override;
    void Unload() override { table = {}; }

private:
    void DrawTable();
    void StartSegment();

    std::uint32_t seed;
    std::vector<int> table; ///< -262143..262143
    int position = 0;
    int endSample;          ///< 0 = endless
    int readIndex = 0;      ///< next entry to play
    int segmentCounter = 0; ///< next entry to draw a segment from
    int mask = 0;           ///< XORed into the samples of this segment
};
