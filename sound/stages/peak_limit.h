#pragma once

#include "sound/sound_process.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

/// Tells whoever reads a limiter how far it has turned the sound down.
class LLimiterNews {
public:
    /// The least gain since the last call, 8.24. Thread: reader. Blocks: no. Allocates: no.
    int TakeLeastGain() { return std::exchange(least, UnityGain); }
    void Note(int gain) { least = std::min(least, gain); }
    /// By how much a gain lowers what it is applied to.
    static double ToDecibels(int gain) { return 20 * std::log10(double{UnityGain} / std::max(gain, 1)); }

private:
    int least = UnityGain;
};

/// Keeps samples within a magnitude by scaling the signal down, block by block, with a gain that moves in
/// straight lines and looks ahead, so that it is low enough before a loud block begins. It only attenuates;
/// what needs no scaling passes to the bit. The output runs three blocks behind the input.
class LSRCPeakLimit : public LSoundProcessBase {
public:
    /// The largest limit there is; a higher one counts as this one.
    static constexpr int MaxLimit = 0x3FFFFF;

    /// `told` may be null.
    LSRCPeakLimit(const LSoundSource& wrapped, int peakLimit, std::shared_ptr<LLimiterNews> told = nullptr);

    void Read(int* buffer, int frames) override;
    int GetPositionSample() const override;
    /// Kept quirk: while the input is streaming, less the three blocks of delay; those frames are lost.
    int GetEndSample() const override;
    void Seek(int frame) override;

private:
    /// One block of input and the gain (8.24) that brings its peak down to the limit.
    struct Block {
        std::vector<int> samples;
        int gain = UnityGain;
    };

    int ConvMaxtoLev(int peak) const;
    void Load(Block& target);
    void Restart();
    void Advance();
    void CalcCLev();
    void Deliver(int* buffer, int frames);

    int limit;
    int block; ///< block length in frames, 16..8192
    int delay; ///< 3 * block
    int index; ///< next frame to deliver within the current block; `delay` before the first block was read
    std::array<Block, 3> blocks; ///< current, next, after next
    int previousGain = UnityGain;
    int gain = UnityGain; ///< of the next frame, 8.24
    int step = 0;         ///< added to the gain after each frame
    std::shared_ptr<LLimiterNews> news;
};

/// Puts the limiter behind a source whose `peakMax` exceeds the limit; any other source passes unchanged.
class LSPPeakLimit : public LSoundProcessor {
public:
    /// `told` hears of what the limiter does, and may be null.
    explicit LSPPeakLimit(int peakLimit, std::shared_ptr<LLimiterNews> told = nullptr)
        : limit(peakLimit),
          news(std::move(told)) {}
    LSoundSource OpenSource(const LSoundSource& input) const override;

private:
    int limit;
    std::shared_ptr<LLimiterNews> news;
};
