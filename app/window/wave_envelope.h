#pragma once

#include "gui/shown_sound.h"

#include <algorithm>

/// What a wave reaches, in ranges that become wider the longer it goes on, so that they stay few.
class WaveEnvelope {
public:
    void Add(float sample) {
        ranges.back() = {std::min(ranges.back().least, sample), std::max(ranges.back().most, sample)};
        if (++taken < width)
            return;
        taken = 0;
        if (ranges.size() == Most)
            Widen();
        ranges.push_back(None);
    }
    std::vector<LShownSound::Range> Get() const {
        return {ranges.begin(), ranges.end() - (taken == 0 ? 1 : 0)};
    }
    /// In frames, of all but the last one.
    std::size_t GetWidth() const { return width; }

private:
    static constexpr std::size_t Most = 8192; // an even number
    static constexpr LShownSound::Range None{1e9F, -1e9F};

    void Widen() {
        for (std::size_t i = 0; i < ranges.size() / 2; ++i)
            ranges[i] = {std::min(ranges[2 * i].least, ranges[2 * i + 1].least),
                         std::max(ranges[2 * i].most, ranges[2 * i + 1].most)};
        ranges.resize(ranges.size() / 2);
        width *= 2;
    }

    std::vector<LShownSound::Range> ranges{None};
    std::size_t width = 64, taken = 0;
};
