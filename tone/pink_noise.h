#pragma once

#include "sound/sound_source.h"

#include <array>
#include <cstdint>
#include <vector>

/// Pink noise, mono at 44100 Hz: random segments of a table of random values through a filter that falls by 3
/// dB an octave. Frequencies, levels and channels of a tone don't apply.
class SSPinkNoise : public LSoundSourceBase {
public:
    static constexpr int TableSize = 32768;

    /// 0 ms means endless. The table is drawn by the first `Read`, and again by the first one after `Unload`,
    /// from a seed that the source keeps: a list of thousands of noises holds the table of the playing one
    /// alone.
    explicit SSPinkNoise(std::uint32_t durationMs);

    void Read(int* out, int frames) override;
    int GetPositionSample() const override { return position; }
    /// One minute for endless noise.
    int GetEndSample() const override;
    /// Restarts from the beginning, whatever frame is asked for.
    void Seek(int frame) override;
    void Unload() override { table = {}; }

private:
    using FilterState = std::array<double, 7>;

    void DrawTable();
    void StartSegment();
    int DrawPlace();

    std::uint32_t seed;
    std::vector<double> table; ///< about +-18350
    int position = 0;
    int endSample;              ///< 0 = endless
    int readIndex = 0;          ///< next entry to filter
    int segmentEnd = TableSize; ///< where the current segment ends
    int segmentCounter = 0;     ///< next entry to draw a segment from
    FilterState filter{};       ///< six one-pole sections and a delayed sample
};
