#pragma once

#include "sound/sound_source.h"
#include "sys/random.h"

#include <cstdint>
#include <vector>

/// What the noises share: mono at 44100 Hz, from a table of random entries that is played through once, then
/// in segments drawn from it. Frequencies, levels and channels of a tone don't apply.
///
/// Kept quirk: one table for ever, so that third octaves stay up to 3 dB off however long it plays.
///
/// The table is drawn by the first `Read`, and again by the first one after `Unload`, from a seed that the
/// source keeps: a list of thousands of noises holds the table of the playing one alone.
template <class Entry>
class NoiseSource : public LSoundSourceBase {
public:
    static constexpr int TableSize = 32768;

    void Read(int* out, int frames) override;
    /// Stays 0 for endless noise.
    int GetPositionSample() const override { return position; }
    /// One minute for endless noise.
    int GetEndSample() const override;
    /// Restarts from the beginning, whatever frame is asked for.
    void Seek(int frame) override;
    void Unload() override { table = {}; }

protected:
    struct Segment {
        int begin, end; ///< entries of the table
    };

    /// 0 frames means endless.
    explicit NoiseSource(int frames);

    virtual Entry DrawEntry(LRandom& random) = 0;
    virtual Segment DrawSegment() = 0;
    virtual void Play(const Entry* entries, int* out, int count) = 0;
    /// Forgets what was played.
    virtual void Restart() = 0;

    /// The entry to draw the next segment from.
    Entry TakeEntry();

private:
    void DrawTable();

    std::uint32_t seed;
    std::vector<Entry> table;
    int position = 0;
    int endSample;                 ///< 0 = endless
    Segment segment{0, TableSize}; ///< what is left of the current one
    std::size_t nextTaken = 0;
};
