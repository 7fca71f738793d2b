#pragma once

#include "measure/channel_block.h"

#include <complex>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

/// The spectra of a sound's segments, averaged. The power of a bin is the mean square of what lies in it: a
/// sine of amplitude A spreads A^2 / 2 over the bins around it, and all bins together have the mean square of
/// the sound.
struct Spectrum {
    struct Channel {
        std::vector<double> power; ///< by bins, from 0 Hz to half the rate
        /// The mean of the squares of what each segment has there, which tells what is steady.
        std::vector<double> squaredPower;
        /// The phase is by how much a bin moves on within `hopFrames`.
        std::vector<std::complex<double>> advance;
    };

    int rate = 0;
    std::size_t segmentFrames = 0; ///< a power of two; 0: the sound is shorter than 64 frames
    std::size_t hopFrames = 0;     ///< from a segment to the one that overlaps it
    int segments = 0;              ///< that were averaged
    double lookedAt = 1;           ///< how much of the sound they are; the rest is like its beginning
    std::vector<Channel> channels;
    /// Of two channels: the mean product of the first one's bins and the conjugates of the second one's, in
    /// the unit of the power. The phase is by how much the second one lags.
    std::vector<std::complex<double>> cross;

    double GetHzPerBin() const { return static_cast<double>(rate) / static_cast<double>(segmentFrames); }

    /// What a segment is seen through: a Kaiser window, whose side lobes lie below -190 dB.
    static constexpr double WindowBeta = 24;
    /// How far that spreads a line, in bins to either side.
    static constexpr std::size_t LineReach = 8;
};

/// Of a long sound: 1.2 s to 2.4 s, but 1024..2^20 frames whatever the rate.
std::size_t GetSegmentFrames(int rate);

/// Averages spectra while the sound goes by, of any length. A segment has `GetSegmentFrames`, or at most half
/// of a shorter sound; three quarters of it overlap the next. After the first 64, which are 24 s of 44.1 kHz,
/// those are left out that are like the first ones (`AlikeWatch`), but for two neighbours of every sixteen,
/// which count for all of them: so a long steady tone takes little longer than its reading, and what happens
/// late is seen. The last segment is that at the end. What is found doesn't depend on the sizes of blocks.
/// Thread: one at a time; from 16 segments on, a second one works for it.
class MeanSpectrum {
public:
    MeanSpectrum(int rate, std::size_t channels);
    ~MeanSpectrum();

    /// A block for each channel.
    void Add(std::span<const ChannelBlock> channels);
    /// Once, behind all blocks.
    Spectrum Finish();

private:
    struct State;
    std::unique_ptr<State> state;
};
