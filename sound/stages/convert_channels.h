#pragma once

#include "sound/sound_process.h"

#include <vector>

/// What both channel converters share: the new channel count and a work buffer of 8192 input frames. Rate,
/// position, end and peak stay the input's.
class LSRCConvChannels : public LSoundProcessBase {
protected:
    LSRCConvChannels(const LSoundSource& wrapped, std::uint8_t outChannels);

    /// Reads at most 8192 frames of the input into the work buffer and returns how many.
    int ReadInput(int framesWanted);

    std::vector<int> work;
};

/// Adds left and right. They are summed, not averaged: what is equal in both comes out twice as loud. The
/// internal scale has room for it.
/// Kept quirk: `peakMax` stays the input's.
class LSRCConvStereoMono : public LSRCConvChannels {
public:
    explicit LSRCConvStereoMono(const LSoundSource& wrapped) : LSRCConvChannels(wrapped, 1) {}
    void Read(int* buffer, int frames) override;
};

/// Gives the one channel to both sides.
class LSRCConvMonoStereo : public LSRCConvChannels {
public:
    explicit LSRCConvMonoStereo(const LSoundSource& wrapped) : LSRCConvChannels(wrapped, 2) {}
    void Read(int* buffer, int frames) override;
};

/// Brings a source from one channel to two or from two to one. Every other pair, and a source with a status,
/// passes unchanged.
class LSPConvChannels : public LSoundProcessor {
public:
    explicit LSPConvChannels(std::uint8_t targetChannels) : channels(targetChannels) {}
    LSoundSource OpenSource(const LSoundSource& input) const override;

private:
    std::uint8_t channels;
};
