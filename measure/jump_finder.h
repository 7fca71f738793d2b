#pragma once

#include "measure/channel_block.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Where a tone does not go on as it did.
struct Jumps {
    bool hasLooked = false; ///< there is a tone at the beginning, which goes on
    std::int64_t count = 0;
    std::int64_t first = -1; ///< the frame; -1: none

    std::int64_t wraps = 0;      ///< of them, those to the other end of the range, 2 away
    std::int64_t firstWrap = -1; ///< the frame; -1: none
};

/// Finds where a steady tone, or a sum of eight lines at most, jumps: by frames dropped or doubled, to
/// another phase, by a click, a sudden start or end. The lines of its first segment (`GetSegmentFrames`) tell
/// how each sample follows from those a quarter and a half of a period before; what is left is noise, of
/// which a jump has eight times the RMS and twice the peak, for half a period of each line or 3 ms at most.
/// Fades take longer and don't count. What goes on for a quarter of a second is another tone or a sweep, of
/// which no jump is told at all. The frame is exact for a loud tone of 500 Hz or more; a lower one has to get
/// away from the noise first, at 100 Hz for 2 frames in 16 bits. Not found are jumps smaller than the noise,
/// those of squares and sawtooths, those within 3 ms of the ends, where converters ring, or in the first two
/// periods, and which of two that close together is which. Thread: one at a time.
class JumpFinder {
public:
    /// `bits` as `LevelMeter` takes them: what they round may be off by a step more now and then.
    JumpFinder(int rate, int bits);

    /// Of tones, as `ToneFigures` has it: jumps make less of it. What varies more comes and goes anyway.
    static constexpr double MostVariation = 0.2;

    void Add(ChannelBlock samples);
    /// Once, behind all blocks.
    Jumps Finish();

private:
    /// Takes one line away, by what it was a quarter and half of a period before.
    struct Prediction {
        std::size_t lag;
        double factor;
        std::vector<double> past;

        void Remove(std::vector<double>& samples);
    };

    void Learn();
    void LearnLines();
    void LearnNoise(const std::vector<double>& rest);
    double GetLeastLoud() const;
    void StartBurst(double sample);
    void LookAt(const std::vector<double>& rest);
    std::vector<double> RemoveLines(ChannelBlock samples);
    void EndBurst();

    int rate, bits;
    double amplitude = 0;          ///< of the strongest line
    std::vector<double> beginning; ///< what is learnt from
    std::vector<Prediction> lines;
    std::int64_t history = 0;           ///< how far back the predictions look, in frames
    std::int64_t reach = 0;             ///< for how many frames a jump is seen at most
    double mean = 0, loud = 0;          ///< of what is left; how far from it is a jump
    std::int64_t frame = 0;             ///< the next to be looked at
    std::int64_t burst = -1, last = -1; ///< the first and the last loud frame of what may be a jump; -1: none
    bool startsWrapped = false;         ///< the burst does
    bool hasLearnt = false, hasChanged = false;
    Jumps jumps;
};
