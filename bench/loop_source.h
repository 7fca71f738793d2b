#pragma once

#include "sound/sound_source.h"

#include <algorithm>
#include <vector>

/// Hands out one block over and over: a source that costs next to nothing beside the stage that is measured.
class LoopSource : public LSoundSourceBase {
public:
    LoopSource(int rate, std::uint8_t channelCount, int amplitude, int peak)
        : LSoundSourceBase(rate, channelCount, peak),
          block(std::size_t{channels} * MaxBlockFrames) {
        std::uint32_t x = 1;
        for (int& sample : block) {
            x = x * 1103515245u + 12345u;
            sample = static_cast<int>((x >> 8) % static_cast<std::uint32_t>(2 * amplitude)) - amplitude;
        }
    }
    void Read(int* buffer, int frames) override {
        std::copy_n(block.data(), std::ptrdiff_t{frames} * channels, buffer);
    }
    int GetPositionSample() const override { return 0; }
    int GetEndSample() const override { return 0x7FFFFFFF; }

private:
    std::vector<int> block;
};
