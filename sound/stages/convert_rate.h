#pragma once

#include "sound/kernels/kernels.h"
#include "sound/sound_process.h"
#include "sound/stages/shared_filter.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// Resamples its input: for every output frame it moves M/N input frames forward and convolves 63 input
/// frames with the coefficients of the sub-phase it stands at, in integers. Mono and stereo; any other layout
/// reads as silence.
///
/// Input frames wait in a work buffer as block floating point: each refill scales what the filter can still
/// reach to 16 bits. Sums of products with 16.16 coefficients are as wide as they need to be.
class LSRCConvertRate : public LSoundProcessBase {
public:
    /// Doubles `peakMax` where it is at most 0x100000, for the filter's overshoot. `wide`: see
    /// `LConvertRateBase`.
    LSRCConvertRate(const LSoundSource& wrapped, int outRate, bool wide);

    void Read(int* buffer, int frames) override;
    int GetPositionSample() const override;
    /// Kept quirk: while the input is streaming, the frames that the filter's second half needs are lost.
    int GetEndSample() const override;
    /// Puts the input 31 frames before the place, so that the filter's span is full when output resumes.
    /// Kept quirk: that is -31 for the beginning, too, so that what the input plays before its own beginning
    /// counts; and the position after a seek can be one less, as it is truncated twice.
    void Seek(int target) override;

    /// The end that a converter states for an input with this end.
    static int ConvertEnd(const LRateFraction& fraction, int inputEnd, bool streaming);

private:
    static constexpr int Taps = LSharedFilter::Taps;
    static constexpr int HalfTaps = Taps >> 1;
    static constexpr int BufferFrames = 32768;
    static constexpr int NarrowFrames = MaxBlockFrames + Taps; ///< the reach of a refill

    void ReadBuffer();
    int GetFramesToRead() const;
    void SetInputShift(int peak);
    LChannelSamples GetNegated(int frame);

    void EnterSubPhase();
    int GetFramesInBuffer() const;
    void Produce(int* buffer, int frames);
    void ProduceWide(int* buffer, int frames) const;
    void MoveOn(int frames);

    int* WorkFrame(int frame);

    std::shared_ptr<const LSharedFilter> design;
    const LConvertRateBase& filter;
    int spanStart = HalfTaps + 1; ///< buffer frame at which the filter's 63 frames begin
    int phaseAccumulator = 0;     ///< in 1/N input frames; after each output frame the sub-phase plus M
    int fill = 0;          ///< how many span starts the buffer can serve: frames 0 .. fill + 62 hold input
    std::vector<int> work; ///< 32768 + 63 frames
    int inputShift = 0;    ///< what the buffered frames were shifted right by
    int outputShift = 15;
    int rounding = 1 << 14;

    /// Per channel, the frames that the last refill made readable, in 16 bits. Negated: rounding can lift a
    /// sample to 32768, but takes none below -32767.
    std::vector<std::int16_t> negated;
    int negatedStart = 0;   ///< the work buffer's frame that stands first in it
    bool samplesFit = true; ///< whether 16 bits hold them; if not, the work buffer is used
};

/// The stages from one rate to another, none where they are the same. A reduction by more than four goes
/// through twice the target rate.
class LRateConversion {
public:
    LRateConversion(int inRate, int outRate);

    LSoundSource OpenSource(const LSoundSource& input) const;
    /// What a source of this end and `peakMax` states once it is converted.
    int ConvertEnd(int end, bool streaming) const;
    int ConvertPeak(int peak) const;

private:
    struct Stage {
        int rate;
        LRateFraction fraction;
    };
    std::span<const Stage> GetStages() const { return {stages.data(), count}; }

    std::array<Stage, 2> stages{};
    std::size_t count = 0;
};

/// Brings a source to a sample rate. A source with a status, and one that has the rate, passes unchanged.
class LSPConvertRate : public LSoundProcessor {
public:
    explicit LSPConvertRate(int targetRate) : rate(targetRate) {}
    LSoundSource OpenSource(const LSoundSource& input) const override;

private:
    int rate;
};

/// Brings a source to a rate and a channel count, in place: mixes down before the rate is converted, spreads
/// out after it, so that the fewest channels are resampled. Only one and two channels convert into each
/// other; a source whose layout can't be converted keeps its channel count.
void LSPConvertSourceRateChannels(int rate, std::uint8_t channels, LSoundSource& source);
