#pragma once

#include "measure/jump_finder.h"
#include "measure/level_meter.h"
#include "measure/stereo_meter.h"
#include "measure/tone_meter.h"
#include "measure/true_peak.h"

#include <optional>
#include <span>
#include <vector>

/// All that is measured of a sound.
struct SoundFigures {
    struct Channel {
        Level level; ///< wrapped samples that jump out of a high tone count as one for each run
        double truePeak = 0;
        ToneFigures tones;
        Jumps jumps; ///< none are looked for where the tones come and go
        /// Wraps would have been found: the tones lie below a twentieth of the rate, or are looked at for
        /// jumps, or the peak lies below a half.
        bool areWrapsKnown = false;
    };
    /// Of the second channel beside the first, as `StereoMeter` and `MeasureDelay` have it.
    struct Stereo {
        std::optional<double> levelRatio, correlation, delayFrames;
    };

    std::vector<Channel> channels;
    Level whole;                  ///< of all channels
    double truePeak = 0;          ///< the largest
    std::optional<Stereo> stereo; ///< where there are two channels
    Spectrum spectrum;
    /// Samples that are not a number or beyond a million times full scale: silence takes their places.
    std::int64_t unusable = 0;
};

/// Measures a sound of any length while it goes by, in constant memory (some 5 MB a channel at 44.1 kHz).
/// Thread: one at a time.
class SoundMeter {
public:
    /// One channel or more; `bits` as `LevelMeter` takes them.
    SoundMeter(int rate, std::size_t channels, int bits);

    /// Whole frames, interleaved, full scale being 1.
    void Add(std::span<const double> frames);
    /// Once, behind all frames.
    SoundFigures Finish();

private:
    struct Channel {
        LevelMeter level;
        TruePeakMeter truePeak;
        JumpFinder jumps;
        std::vector<double> block;

        SoundFigures::Channel Finish(const ToneFigures& tones, int rate);
    };

    void TakeApart(std::span<const double> frames);

    std::vector<Channel> channels;
    StereoMeter stereo;
    MeanSpectrum spectrum;
    std::int64_t unusable = 0;
};
